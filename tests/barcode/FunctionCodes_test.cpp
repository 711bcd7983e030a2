// The buttons that the function codes of the printed sheet press.
#include "barcode/FunctionCodes.h"

#include <set>
#include <utility>

#include <gtest/gtest.h>

#include <QString>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

constexpr int tabs = 5;

} // namespace

TEST(FunctionCodes, searchUpdateAndDelete_pressTheButtonsOfTheEntryTabInFront)
{
    EXPECT_EQ(buttonOf(u"E", 0), u"cmdNKensaku"_s);
    EXPECT_EQ(buttonOf(u"E", 1), u"cmdSKensaku"_s);
    EXPECT_EQ(buttonOf(u"I", 0), u"cmdNKousin"_s);
    EXPECT_EQ(buttonOf(u"I", 1), u"cmdSKousin"_s);
    EXPECT_EQ(buttonOf(u"J", 0), u"cmdNDelete"_s);
    EXPECT_EQ(buttonOf(u"J", 1), u"cmdSDelete"_s);
    for (int tab = 2; tab < tabs; ++tab)
        for (const QStringView function : {u"I", u"J"})
            EXPECT_TRUE(buttonOf(function, tab).isEmpty()) << tab;
}

TEST(FunctionCodes, listReport_pressesTheButtonOfTheListInFront)
{
    EXPECT_EQ(buttonOf(u"F", 2), u"cmdRptZList"_s);
    EXPECT_EQ(buttonOf(u"F", 3), u"cmdRptNList"_s);
    EXPECT_EQ(buttonOf(u"F", 4), u"cmdRptSList"_s);
    for (const int entry : {0, 1})
        EXPECT_TRUE(buttonOf(u"F", entry).isEmpty()) << entry;
}

TEST(FunctionCodes, masterDataAndEnd_arePressedOnEveryTab)
{
    for (int tab = 0; tab < tabs; ++tab) {
        EXPECT_EQ(buttonOf(u"O", tab), u"cmdMaster"_s);
        EXPECT_EQ(buttonOf(u"U", tab), u"CmdEnd"_s);
    }
}

TEST(FunctionCodes, whatIsNoFunction_pressesNothing)
{
    for (const QString& none : {u""_s,   u"H"_s, u"V"_s, u"W"_s,  u"X"_s,  u"Y"_s, u"Z"_s,  u"K"_s,
                                u"P"_s,  u"R"_s, u"T"_s, u"e"_s,  u"i"_s,  u"u"_s, u"EE"_s, u"E "_s,
                                u" E"_s, u"5"_s, u"0"_s, u"Ｅ"_s, u"Ｕ"_s, u"["_s, u"\0"_s, u"終"_s})
        for (int tab = 0; tab < tabs; ++tab)
            EXPECT_TRUE(buttonOf(none, tab).isEmpty()) << none.toStdString() << " on tab " << tab;
}

TEST(FunctionCodes, noCodePressesTwoButtonsOnOneTab)
{
    std::set<std::pair<char16_t, int>> seen;
    for (const FunctionCode& entry : functionCodes) {
        for (int tab = 0; tab < tabs; ++tab) {
            if (entry.tab != onEveryTab && entry.tab != tab)
                continue;
            EXPECT_TRUE(seen.emplace(entry.code, tab).second)
                << static_cast<char>(entry.code) << " on tab " << tab;
        }
    }
}

} // namespace suisui::test
