#include "tools/FormCells.h"

#include <algorithm>

#include <QList>
#include <QString>

#include "platform/core/CodePage.h"
#include "store/ScannedValue.h"
#include "store/Where.h"
#include "tools/OldTexts.h"

namespace suisui {

namespace {

template <typename Column> constexpr int at(Column column)
{
    return static_cast<int>(column);
}

constexpr FormField staffFields[] = {{"担当者コード", at(TantouCol::Code), FormKind::Code},
                                     {"担当者名", at(TantouCol::Name)}};
constexpr FormField partnerFields[] = {{"取引先コード", at(KokyakuCol::Code), FormKind::Code},
                                       {"取引先名", at(KokyakuCol::Name)},
                                       {"入荷先", at(KokyakuCol::NyuKyk), FormKind::Flag},
                                       {"出荷先", at(KokyakuCol::SyuKyk), FormKind::Flag},
                                       {"郵便番号", at(KokyakuCol::YubinNo)},
                                       {"住所１", at(KokyakuCol::Jyusyo1)},
                                       {"住所２", at(KokyakuCol::Jyusyo2)},
                                       {"電話番号", at(KokyakuCol::Tel)}};
constexpr FormField goodsFields[] = {{"商品コード", at(MasterCol::Code), FormKind::GoodsCode},
                                     {"商品名", at(MasterCol::Name)},
                                     {"単位", at(MasterCol::Unit)},
                                     {"入荷数量", at(MasterCol::NyuSuu), FormKind::Whole, "1"},
                                     {"入荷単価", at(MasterCol::NyuPrice), FormKind::Number, "0"},
                                     {"出荷数量", at(MasterCol::SyuSuu), FormKind::Whole, "1"},
                                     {"出荷単価", at(MasterCol::SyuPrice), FormKind::Number, "0"},
                                     {"最低在庫数", at(MasterCol::Stock), FormKind::Number, "0"}};
constexpr FormField partFields[] = {{"商品コード", at(HSeihinCol::Code), FormKind::GoodsCode},
                                    {"部品コード", at(HSeihinCol::HSeihinCD), FormKind::GoodsCode},
                                    {"部品の数", at(HSeihinCol::Suuryou), FormKind::Count}};

/// Whether a spreadsheet has turned a long code into a rounded number ("4.9E+12").
bool wasRounded(std::string_view code)
{
    const std::size_t e = code.find_first_of("Ee");
    return e != std::string_view::npos && e > 0 && e + 1 < code.size() && code[e + 1] == '+'
           && code.find_first_not_of("0123456789.") == e
           && code.find_first_not_of("0123456789", e + 2) == std::string_view::npos;
}

/// Whether all of \a text can be seen: no zero-width characters, no control marks of a word processor, no
/// blanks but the ordinary and the full-width one.
bool isVisible(const QString& text)
{
    constexpr char32_t wideBlank = U'\u3000';
    const QList<uint> characters = text.toUcs4();
    return std::ranges::all_of(characters, [](uint c) {
        if (c == U' ' || c == wideBlank)
            return true;
        switch (QChar::category(c)) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Other_Surrogate:
        case QChar::Other_PrivateUse:
        case QChar::Other_NotAssigned:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
        case QChar::Separator_Space:
            return false;
        default:
            return true;
        }
    });
}

QString halfWidth(const std::string& text)
{
    QString half = QString::fromStdString(text);
    for (QChar& c : half)
        if (c >= u'！' && c <= u'～')
            c = QChar(c.unicode() - u'！' + u'!');
    return half;
}

/// Why no scan can ever be taken for the goods code \a code; empty when one can. \a cell is the form's text.
std::string unscannable(const std::string& code, const std::string& cell)
{
    const QString text = QString::fromStdString(code);
    const std::string named = "「" + code + "」";
    if (halfWidth(cell) != text)
        return "「" + cell + "」の前後に空白があります。空白を取り除いて下さい";
    if (const Enclosure* const opened = openedBy(text))
        return named + "は使えません。「" + QString(QChar(opened->first)).toStdString()
               + "」で始まるコードは、読み取っても商品コードになりません";
    if (text.size() > longestGoodsCode)
        return named + "は長すぎます。商品コードは " + std::to_string(longestGoodsCode) + " 文字までです";
    if (!toCp932(code))
        return named + "に、バーコードでは読み取れない文字があります";
    return {};
}

FormCell codeCell(const std::string& text, FormKind kind)
{
    std::string code = plainText(text);
    if (code.empty())
        return {.stored = {}, .fault = "がありません"};
    if (wasRounded(code))
        return {.stored = {},
                .fault =
                    "「" + code
                    + "」は表計算ソフトが桁を丸めたものです。列の書式を「文字列」にして入れ直して下さい"};
    if (!canBeCode(code))
        return {.stored = {}, .fault = "「" + code + "」に使えない文字があります"};
    if (!isVisible(QString::fromStdString(code)))
        return {.stored = {},
                .fault = "「" + code + "」に目に見えない文字があります。コードを入れ直して下さい"};
    if (kind == FormKind::GoodsCode)
        if (std::string fault = unscannable(code, text); !fault.empty())
            return {.stored = {}, .fault = std::move(fault)};
    return {.stored = std::move(code)};
}

/// Movement numbers are whole, so a default quantity with a fraction would be booked as another number.
FormCell wholeCell(std::string stored, const std::string& text)
{
    const std::size_t point = stored.find('.');
    if (point != std::string::npos) {
        if (stored.find_first_not_of('0', point + 1) != std::string::npos)
            return {.stored = {}, .fault = "「" + text + "」は使えません。小数のない数を入れて下さい"};
        stored.erase(point);
    }
    return {.stored = stored.empty() ? "0" : std::move(stored)};
}

FormCell numberCell(const Form& form, const FormField& field, const std::string& text)
{
    std::string number = plainText(text);
    std::erase(number, ',');
    if (number.empty())
        number = field.whenEmpty;
    auto stored =
        asStored(form.table.name, form.table.columns[static_cast<std::size_t>(field.column)], number);
    if (!stored || stored->empty() || stored->starts_with('-')
        || (field.kind == FormKind::Count && stored->find_first_of("123456789") == std::string::npos))
        return {.stored = {}, .fault = "「" + text + "」は使えません。数を入れて下さい"};
    if (field.kind == FormKind::Whole)
        return wholeCell(std::move(*stored), text);
    return {.stored = std::move(stored)};
}

FormCell flagCell(const std::string& text)
{
    const std::string mark = plainText(text);
    for (const std::string_view yes : {"1", "○", "〇", "◯"})
        if (mark == yes)
            return {.stored = "1"};
    if (mark.empty() || mark == "0")
        return {.stored = ""};
    return {.stored = {}, .fault = "「" + text + "」は使えません。「1」を入れるか、空けておいて下さい"};
}

/// A name is copied into movements; a quote in it would make saving a period fail one day.
FormCell textCell(const std::string& text)
{
    if (text.find('\'') != std::string::npos)
        return {.stored = {}, .fault = "「" + text + "」の「'」は使えません。「’」にして下さい"};
    if (std::ranges::any_of(text, [](unsigned char c) { return c < ' '; }))
        return {.stored = {}, .fault = "に改行などの使えない文字があります"};
    return {.stored = text};
}

} // namespace

std::span<const Form> allForms()
{
    static const Form forms[] = {
        {.file = "担当者.csv", .what = "担当者", .table = tantouTable, .fields = staffFields},
        {.file = "取引先.csv", .what = "取引先", .table = kokyakuTable, .fields = partnerFields},
        {.file = "商品.csv", .what = "商品", .table = masterTable, .fields = goodsFields},
        {.file = "部品.csv",
         .what = "部品",
         .table = hseihinTable,
         .fields = partFields,
         .partsOfTheCode = true}};
    return forms;
}

std::string plainText(const std::string& text)
{
    return halfWidth(text).trimmed().toStdString();
}

FormCell formCell(const Form& form, const FormField& field, const std::string& text)
{
    switch (field.kind) {
    case FormKind::Code:
    case FormKind::GoodsCode:
        return codeCell(text, field.kind);
    case FormKind::Number:
    case FormKind::Whole:
    case FormKind::Count:
        return numberCell(form, field, text);
    case FormKind::Flag:
        return flagCell(text);
    case FormKind::Text:
        break;
    }
    return textCell(text);
}

} // namespace suisui
