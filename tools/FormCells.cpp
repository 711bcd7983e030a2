#include "tools/FormCells.h"

#include <algorithm>

#include <QString>

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
constexpr FormField goodsFields[] = {{"商品コード", at(MasterCol::Code), FormKind::Code},
                                     {"商品名", at(MasterCol::Name)},
                                     {"単位", at(MasterCol::Unit)},
                                     {"入荷数量", at(MasterCol::NyuSuu), FormKind::Number, "1"},
                                     {"入荷単価", at(MasterCol::NyuPrice), FormKind::Number, "0"},
                                     {"出荷数量", at(MasterCol::SyuSuu), FormKind::Number, "1"},
                                     {"出荷単価", at(MasterCol::SyuPrice), FormKind::Number, "0"},
                                     {"最低在庫数", at(MasterCol::Stock), FormKind::Number, "0"}};
constexpr FormField partFields[] = {{"商品コード", at(HSeihinCol::Code), FormKind::Code},
                                    {"部品コード", at(HSeihinCol::HSeihinCD), FormKind::Code},
                                    {"部品の数", at(HSeihinCol::Suuryou), FormKind::Count}};

/// Whether a spreadsheet has turned a long code into a rounded number ("4.9E+12").
bool wasRounded(std::string_view code)
{
    const std::size_t e = code.find_first_of("Ee");
    return e != std::string_view::npos && e > 0 && e + 1 < code.size() && code[e + 1] == '+'
           && code.find_first_not_of("0123456789.") == e
           && code.find_first_not_of("0123456789", e + 2) == std::string_view::npos;
}

FormCell codeCell(const std::string& text)
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
    return {.stored = std::move(code)};
}

FormCell numberCell(const Form& form, const FormField& field, const std::string& text)
{
    std::string number = plainText(text);
    std::erase(number, ',');
    if (number.empty())
        number = field.whenEmpty;
    const auto stored =
        asStored(form.table.name, form.table.columns[static_cast<std::size_t>(field.column)], number);
    if (!stored || stored->empty() || stored->starts_with('-')
        || (field.kind == FormKind::Count && stored->find_first_of("123456789") == std::string::npos))
        return {.stored = {}, .fault = "「" + text + "」は使えません。数を入れて下さい"};
    return {.stored = stored};
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

/// A quote in a copied name would stop the saving of history one day.
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
    QString half = QString::fromStdString(text);
    for (QChar& c : half)
        if (c >= u'！' && c <= u'～')
            c = QChar(c.unicode() - u'！' + u'!');
    return half.trimmed().toStdString();
}

FormCell formCell(const Form& form, const FormField& field, const std::string& text)
{
    switch (field.kind) {
    case FormKind::Code:
        return codeCell(text);
    case FormKind::Number:
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
