// Values in the places of a message text.
#include "platform/core/FillIn.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

TEST(FillIn, putsEachValueInItsPlaces)
{
    EXPECT_EQ(fillIn(u"（{count} 件）{base}\\DB {count}", {{u"count", u"25001"_s}, {u"base", u"C:"_s}}),
              u"（25001 件）C:\\DB 25001"_s);
    EXPECT_EQ(fillIn(u"{count}", {{u"count", QString()}}), QString());
    EXPECT_EQ(fillIn(u"", {{u"count", u"1"_s}}), QString());
    EXPECT_EQ(fillIn(u"何もない", {}), u"何もない"_s);
}

TEST(FillIn, leavesAValueThatLooksLikeAPlace)
{
    EXPECT_EQ(fillIn(u"{name} {code}", {{u"name", u"{code}"_s}, {u"code", u"{name}"_s}}), u"{code} {name}"_s);
}

TEST(FillIn, leavesBracesThatNameNothing)
{
    for (const QString& text :
         {u"{"_s, u"}"_s, u"{}"_s, u"{other}"_s, u"{count"_s, u"{ count}"_s, u"a{b"_s, u"{cou{x}"_s})
        EXPECT_EQ(fillIn(text, {{u"count", u"1"_s}}), text);
    EXPECT_EQ(fillIn(u"{{count}}", {{u"count", u"1"_s}}), u"{1}"_s);
    EXPECT_EQ(fillIn(u"{countless}{count}", {{u"count", u"1"_s}}), u"{countless}1"_s);
}

} // namespace suisui::test
