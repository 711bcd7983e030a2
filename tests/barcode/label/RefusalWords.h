// The words in which each field of the label dialog is refused, as the shop knows them.
#pragma once

#include <QString>

#include "barcode/label/LabelFields.h"

namespace suisui::test {

/// What follows the first line of a refusal.
inline const QString noNumber = QStringLiteral("\r\n\r\n数値入力した後に、再度、印刷して下さい。");
inline const QString tooSmall =
    QStringLiteral("\r\n\r\n１ 以上の数値を入力した後に、再度、印刷して下さい。　　　");

struct RefusalWords
{
    LabelField field;
    const char16_t* title;
    const char16_t* noNumber;
    const char16_t* zero = nullptr; ///< where nothing is too little

    [[nodiscard]] QString textOfNoNumber() const { return QString::fromUtf16(noNumber) + test::noNumber; }
    [[nodiscard]] QString textOfZero() const { return QString::fromUtf16(zero) + tooSmall; }
};

// In the order of the checks.
inline constexpr RefusalWords refusalWords[] = {
    {LabelField::startY, u"印刷開始位置 ： 縦 エラー",
     u"「印刷開始位置 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::startX, u"印刷開始位置 ： 横 エラー",
     u"「印刷開始位置 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::columns, u"１ページ内の列数 エラー",
     u"「１ページ内の列数」 が 数値入力されていません。　　　",
     u"「１ページ内の列数」 に ０ は入力できません。"},
    {LabelField::barHeight, u"線高 エラー", u"「線高」 が 数値入力されていません。　　　",
     u"「線高」 に １ より小さい数値は入力できません。"},
    {LabelField::height, u"ラベル高 エラー", u"「ラベル高」 が 数値入力されていません。　　　"},
    {LabelField::rows, u"１ページ内の行数 エラー", u"「１ページ内の行数」 が 数値入力されていません。　　　",
     u"「１ページ内の行数」 に ０ は入力できません。"},
    {LabelField::width, u"ラベル幅 エラー", u"「ラベル幅」 が 数値入力されていません。　　　"},
    {LabelField::nameX, u"名称印刷 ： 横 エラー", u"「名称印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::nameY, u"名称印刷 ： 縦 エラー", u"「名称印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::codeX, u"コード印刷 ： 横 エラー",
     u"「コード印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::codeY, u"コード印刷 ： 縦 エラー",
     u"「コード印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::screenX, u"画面切替 印刷 ： 横 エラー",
     u"「画面切替 印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::screenY, u"画面切替 印刷 ： 縦 エラー",
     u"「画面切替 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::searchX, u"検索機能 印刷 ： 横 エラー",
     u"「検索機能 印刷 ： 横」 が 数値入力されていません。　　　"},
    {LabelField::searchY, u"検索機能 印刷 ： 縦 エラー",
     u"「検索機能 印刷 ： 縦」 が 数値入力されていません。　　　"},
    {LabelField::eachRow, u"ラベル印刷枚数 エラー", u"「ラベル印刷枚数」 が 数値入力されていません。　　　"},
    {LabelField::firstRow, u"印刷開始行 エラー", u"「印刷開始行」 が 数値入力されていません。　　　",
     u"「印刷開始行」 に ０ は入力できません。"},
    {LabelField::lastRow, u"印刷最終行 エラー", u"「印刷最終行」 が 数値入力されていません。　　　",
     u"「印刷最終行」 に ０ は入力できません。"},
};

} // namespace suisui::test
