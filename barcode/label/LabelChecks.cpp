#include "barcode/label/LabelChecks.h"

#include <cmath>
#include <optional>

#include "barcode/label/LabelSetup.h"
#include "platform/core/FillIn.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

/// The largest number that fits the page fields.
constexpr std::int32_t mostPages = 9999;

LabelRefusal inWords(const LabelFieldRow& row, const char16_t* fault, const QString& whatToDo)
{
    return {QString::fromUtf16(row.words.title), QString::fromUtf16(fault) + whatToDo, row.field, {}};
}

LabelRefusal notANumber(const LabelFieldRow& row)
{
    return inWords(row, row.words.notANumber, u"\r\n\r\n数値入力した後に、再度、印刷して下さい。"_s);
}

LabelRefusal tooSmall(const LabelFieldRow& row)
{
    return inWords(row, row.words.tooSmall,
                   u"\r\n\r\n１ 以上の数値を入力した後に、再度、印刷して下さい。　　　"_s);
}

/// A disabled field is not checked.
std::optional<LabelRefusal> fieldRefusal(const LabelSetup& setup, const LabelFieldRow& row)
{
    if (row.check == LabelCheck::none || !setup.enabled(row.field))
        return {};
    const std::optional<double> number = numberIn(setup.text(row.field));
    if (!number)
        return notANumber(row);
    if (row.check == LabelCheck::notZero && *number == 0)
        return tooSmall(row);
    if (row.check == LabelCheck::atLeastOne && std::nearbyint(*number) == 0)
        return tooSmall(row);
    return {};
}

/// A reversed or too long range is corrected for the operator to confirm.
std::optional<LabelRefusal> rangeRefusal(const LabelSetup& setup)
{
    const QString& first = setup.text(LabelField::firstRow);
    const QString& last = setup.text(LabelField::lastRow);
    if (setup.number(LabelField::lastRow) < setup.number(LabelField::firstRow))
        return LabelRefusal{
            u"印刷開始行 > 印刷最終行 エラー"_s,
            fillIn(u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： "
                   u"{first}　　印刷最終行 ： {last}\r\n\r\n「印刷最終行」 と 「印刷開始行」 "
                   u"を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。",
                   {{u"first", first}, {u"last", last}}),
            LabelField::firstRow, CorrectedRows{.first = last, .last = first, .afterFocus = true}};
    const QString end = QString::number(setup.endRow());
    if (setup.number(LabelField::lastRow) > setup.endRow())
        return LabelRefusal{
            u"印刷可能範囲 < 印刷最終行 エラー"_s,
            fillIn(
                u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ "
                u"{EndRow} 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 "
                u"に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。",
                {{u"EndRow", end}}),
            LabelField::lastRow, CorrectedRows{.first = u"1"_s, .last = end}};
    return {};
}

/// Refuses a job without pages, or with more than the page fields can name.
std::optional<LabelRefusal> pageRefusal(const LabelSetup& setup)
{
    if (setup.pageTotal() < 1)
        return LabelRefusal{
            u"印刷する情報なし エラー"_s,
            u"印刷する情報がありません。\r\n\r\n印刷する条件が正しいか確認した後に　　　\r\n再度、印刷して下さい。"_s,
            {},
            {}};
    if (setup.pages().last <= mostPages)
        return {};
    return LabelRefusal{
        u"ページ指定 エラー"_s,
        u"一度に 印刷できるのは %1 ページまでです。　　　\r\n\r\n「数量」 と 「ページ指定」 を確認した後に、再度、印刷して下さい。"_s
            .arg(mostPages),
        LabelField::lastPage,
        {}};
}

} // namespace

std::optional<LabelRefusal> refusalOf(const LabelSetup& setup)
{
    for (const LabelFieldRow& row : labelFields())
        if (auto refusal = fieldRefusal(setup, row))
            return refusal;
    if (setup.ticked(LabelField::rowRange))
        if (auto refusal = rangeRefusal(setup))
            return refusal;
    return pageRefusal(setup);
}

} // namespace suisui
