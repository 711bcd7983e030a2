// What a dialog makes of a scanned value.
#include "frame/support/ScannedValue.h"

#include <gtest/gtest.h>

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

/// What a dialog did with \a value.
QStringList inDialog(const QString& value)
{
    QStringList did;
    dialogBarCodeChk(
        value, [&did] { did += u"OK"_s; }, [&did] { did += u"end"_s; },
        [&did](const QString& keys) { did += u"keys "_s + keys; });
    return did;
}

} // namespace

TEST(DialogScan, pPressesOk_tTheOtherButton_keysAreTyped)
{
    EXPECT_EQ(inDialog(u"[P]"_s), QStringList{u"OK"_s});
    EXPECT_EQ(inDialog(u"[T]"_s), QStringList{u"end"_s});
    EXPECT_EQ(inDialog(u"{ENTER}"_s), QStringList{u"keys {ENTER}"_s});
}

TEST(DialogScan, everythingElseIsDropped)
{
    for (const QString& value : {u""_s, u"4901001000017"_s, u"P"_s, u"T"_s, u"[p]"_s, u"[t]"_s, u"[PP]"_s,
                                 u"[ P]"_s, u"[]"_s, u"[E]"_s, u"[0]"_s, u"[9]"_s, u"#101#"_s, u"@02@"_s,
                                 u"#"_s, u"@"_s, u"[P"_s, u"{ENTER"_s, u"12345678901234567"_s})
        EXPECT_EQ(inDialog(value), QStringList()) << value.toStdString();
}

} // namespace suisui::test
