// What a scanned value is.
#include "store/ScannedValue.h"

#include <gtest/gtest.h>

#include "platform/core/RunTimeError.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

struct Case
{
    QString value;
    ScanKind kind;
    QString text;
};

const Case cases[] = {
    {u""_s, ScanKind::Nothing, u""_s},
    // keys keep their braces
    {u"{ENTER}"_s, ScanKind::Keys, u"{ENTER}"_s},
    {u"{TAB}x{F5}"_s, ScanKind::Keys, u"{TAB}x{F5}"_s},
    {u"{}"_s, ScanKind::Keys, u"{}"_s},
    {u"{a very long text of keys, far over any code}"_s, ScanKind::Keys,
     u"{a very long text of keys, far over any code}"_s},
    // inner texts
    {u"[E]"_s, ScanKind::Function, u"E"_s},
    {u"[]"_s, ScanKind::Function, u""_s},
    {u"[[E]]"_s, ScanKind::Function, u"[E]"_s},
    {u"[01234567890123456789]"_s, ScanKind::Function, u"01234567890123456789"_s},
    {u"#101#"_s, ScanKind::Partner, u"101"_s},
    {u"##"_s, ScanKind::Partner, u""_s},
    {u"###"_s, ScanKind::Partner, u"#"_s},
    {u"@02@"_s, ScanKind::Staff, u"02"_s},
    {u"@@"_s, ScanKind::Staff, u""_s},
    // an opening character without its closing one is never a goods code
    {u"{ENTER"_s, ScanKind::Dropped, u"{ENTER"_s},
    {u"{"_s, ScanKind::Dropped, u"{"_s},
    {u"{E]"_s, ScanKind::Dropped, u"{E]"_s},
    {u"[E"_s, ScanKind::Dropped, u"[E"_s},
    {u"["_s, ScanKind::Dropped, u"["_s},
    {u"[E}"_s, ScanKind::Dropped, u"[E}"_s},
    {u"[E] "_s, ScanKind::Dropped, u"[E] "_s},
    {u"#101"_s, ScanKind::Dropped, u"#101"_s},
    {u"#101@"_s, ScanKind::Dropped, u"#101@"_s},
    {u"@02"_s, ScanKind::Dropped, u"@02"_s},
    {u"@02#"_s, ScanKind::Dropped, u"@02#"_s},
    // goods
    {u"4901001000017"_s, ScanKind::Goods, u"4901001000017"_s},
    {u"0"_s, ScanKind::Goods, u"0"_s},
    {u" "_s, ScanKind::Goods, u" "_s},
    {u"}"_s, ScanKind::Goods, u"}"_s},
    {u"E]"_s, ScanKind::Goods, u"E]"_s},
    {u" [E]"_s, ScanKind::Goods, u" [E]"_s},
    {u"1234567890123456"_s, ScanKind::Goods, u"1234567890123456"_s},
    {u"12345678901234567"_s, ScanKind::Dropped, u"12345678901234567"_s},
    {u"入荷入荷入荷入荷入荷入荷入荷入荷"_s, ScanKind::Goods, u"入荷入荷入荷入荷入荷入荷入荷入荷"_s},
    {u"入荷入荷入荷入荷入荷入荷入荷入荷入"_s, ScanKind::Dropped, u"入荷入荷入荷入荷入荷入荷入荷入荷入"_s},
    {u"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷"_s, ScanKind::Goods, u"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷"_s}, // two units each
    {u"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷1"_s, ScanKind::Dropped, u"𠮷𠮷𠮷𠮷𠮷𠮷𠮷𠮷1"_s},
};

} // namespace

TEST(ScannedValue, isKnownByItsFirstAndLastCharacter)
{
    for (const Case& one : cases) {
        const ScannedValue scanned = classify(one.value);
        EXPECT_EQ(scanned.kind, one.kind) << one.value.toStdString();
        EXPECT_EQ(scanned.text, one.text) << one.value.toStdString();
    }
}

TEST(ScannedValue, aSingleHashOrAt_isARunTimeError)
{
    for (const QString& value : {u"#"_s, u"@"_s}) {
        try {
            (void)classify(value);
            FAIL() << value.toStdString();
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), RunTimeError::InvalidCall);
        }
    }
}

} // namespace suisui::test
