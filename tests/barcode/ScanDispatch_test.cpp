// What each scanned value does on the main window.
#include "barcode/ScanDispatch.h"

#include <gtest/gtest.h>

#include <QStringList>

#include "platform/core/RunTimeError.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// A window of five tabs that records what it is asked for.
class NotingWindow final : public ScanTarget
{
public:
    void selectTab(int tab) override
    {
        asked += u"tab %1"_s.arg(tab);
        if (tab < 0 || tab > 4)
            throw RunTimeError(RunTimeError::SubscriptOutOfRange, "no such tab");
    }
    void GoodsCodeSet(const QString& code) override { asked += u"goods "_s + code; }
    void TantouCodeSet(const QString& code) override { asked += u"staff "_s + code; }
    void SakiCodeSet(const QString& code) override { asked += u"partner "_s + code; }
    void sendKeys(const QString& expression) override { asked += u"keys "_s + expression; }
    void MainBarEtc(const QString& function) override { asked += u"function "_s + function; }

    QStringList asked;
};

QStringList after(const QString& value)
{
    NotingWindow window;
    MainBarCodeChk(value, window);
    return window.asked;
}

struct Case
{
    QString value;
    QStringList asked;
};

struct Failure
{
    QString value;
    RunTimeError::Number number;
};

} // namespace

TEST(ScanDispatch, eachValueGoesToItsOneTarget)
{
    const Case cases[] = {
        {u""_s, {}},
        {u"4901001000017"_s, {u"goods 4901001000017"_s}},
        {u"1234567890123456"_s, {u"goods 1234567890123456"_s}},
        {u"12345678901234567"_s, {}},
        {u"P"_s, {u"goods P"_s}},
        {u"0"_s, {u"goods 0"_s}},
        {u"4901'; DELETE"_s, {u"goods 4901'; DELETE"_s}},
        {u"{ENTER}"_s, {u"keys {ENTER}"_s}},
        {u"{}"_s, {u"keys {}"_s}},
        {u"#101#"_s, {u"partner 101"_s}},
        {u"##"_s, {u"partner "_s}},
        {u"@02@"_s, {u"staff 02"_s}},
        {u"@@"_s, {u"staff "_s}},
        {u"[E]"_s, {u"function E"_s}},
        {u"[P]"_s, {u"function P"_s}},
        {u"[]"_s, {u"function "_s}},
    };
    for (const Case& one : cases)
        EXPECT_EQ(after(one.value), one.asked) << one.value.toStdString();
}

TEST(ScanDispatch, anOpeningSignWithoutItsClosingOne_isNothing)
{
    for (const QString& value :
         {u"{ENTER"_s, u"[E"_s, u"[4"_s, u"#101"_s, u"@02"_s, u"{"_s, u"["_s, u"#101@"_s, u"[4] "_s})
        EXPECT_EQ(after(value), QStringList()) << value.toStdString();
}

TEST(ScanDispatch, functions0To4_selectTheirTab)
{
    for (int tab = 0; tab <= 4; ++tab)
        EXPECT_EQ(after(u"[%1]"_s.arg(tab)), QStringList{u"tab %1"_s.arg(tab)});
}

TEST(ScanDispatch, theRangeOfTabsIsComparedAsText)
{
    for (const QString& function :
         {u"5"_s, u"9"_s, u"40"_s, u"4A"_s, u"4 "_s, u" 1"_s, u"-1"_s, u"/"_s, u"A0"_s, u"１"_s, u"４"_s})
        EXPECT_EQ(after(u'[' + function + u']'), QStringList{u"function "_s + function})
            << function.toStdString();
    EXPECT_EQ(after(u"[01]"_s), QStringList{u"tab 1"_s});
    EXPECT_EQ(after(u"[1.5]"_s), QStringList{u"tab 2"_s}); // halves go to the even neighbour
    EXPECT_EQ(after(u"[2.5]"_s), QStringList{u"tab 2"_s});
}

TEST(ScanDispatch, inTheRange_whatIsNotATab_orALoneSign_isARunTimeError)
{
    const Failure failures[] = {
        {u"[10]"_s, RunTimeError::SubscriptOutOfRange},
        {u"[33]"_s, RunTimeError::SubscriptOutOfRange},
        {u"[2X]"_s, RunTimeError::TypeMismatch},
        {u"[0x1]"_s, RunTimeError::TypeMismatch},
        {u"[3E9]"_s, RunTimeError::Overflow},
        {u"[1]]"_s, RunTimeError::TypeMismatch},
        {u"[39999]"_s, RunTimeError::Overflow},
        {u"#"_s, RunTimeError::InvalidCall},
        {u"@"_s, RunTimeError::InvalidCall},
    };
    for (const Failure& failure : failures) {
        try {
            after(failure.value);
            ADD_FAILURE() << failure.value.toStdString();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), failure.number) << failure.value.toStdString();
        }
    }
}

} // namespace suisui::test
