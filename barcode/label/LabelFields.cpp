#include "barcode/label/LabelFields.h"

#include <algorithm>

#include "platform/widgets/KeyCodes.h"

namespace suisui {

namespace {

using enum LabelField;

constexpr LabelTyping measure{LabelKeys::measure, 6};
constexpr LabelTyping rowNumber{LabelKeys::digits, 4};
constexpr LabelTyping pageNumber{LabelKeys::digits, 4};
constexpr LabelTyping labelNumber{LabelKeys::digits, 3};
// The list of first labels gets an item for each label of a page, so not even a pasted number may be larger.
constexpr LabelTyping gridCount{LabelKeys::digits, 2, true};

constexpr const char16_t* noDistance = u"0.00";

constexpr std::array<LabelFieldRow, labelFieldCount> table{{
    {.field = startY,
     .control = "txtXYpoint_1",
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"印刷開始位置 ： 縦 エラー", u"「印刷開始位置 ： 縦」 が 数値入力されていません。　　　"},
     .saving = {u"YPoint", 4},
     .next = startX},
    {.field = startX,
     .control = "txtXYpoint_0",
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"印刷開始位置 ： 横 エラー", u"「印刷開始位置 ： 横」 が 数値入力されていません。　　　"},
     .saving = {u"XPoint", 3},
     .next = columns},
    {.field = columns,
     .control = "txtOnePageNum_0",
     .labels = {"lblOnePageNum_0", "lblOnePageUnit_0"},
     .typing = gridCount,
     .check = LabelCheck::notZero,
     .words = {u"１ページ内の列数 エラー", u"「１ページ内の列数」 が 数値入力されていません。　　　",
               u"「１ページ内の列数」 に ０ は入力できません。"},
     .saving = {u"PageColumns", 7, LabelTakes::count},
     .next = barHeight},
    {.field = barHeight,
     .control = "txtBarHeight",
     .typing = measure,
     .check = LabelCheck::atLeastOne,
     .words = {u"線高 エラー", u"「線高」 が 数値入力されていません。　　　",
               u"「線高」 に １ より小さい数値は入力できません。"},
     .saving = {u"BarHeight", 2},
     .next = height},
    {.field = height,
     .control = "txtWHPich_1",
     .labels = {"lblWHPich_1", "lblWHUnit_1"},
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"ラベル高 エラー", u"「ラベル高」 が 数値入力されていません。　　　"},
     .saving = {u"HPich", 6},
     .next = barPitch},
    {.field = barPitch, .control = "cmbBarPich", .saving = {u"BarPich", 1, LabelTakes::pitch}, .next = rows},
    {.field = rows,
     .control = "txtOnePageNum_1",
     .labels = {"lblOnePageNum_1", "lblOnePageUnit_1"},
     .typing = gridCount,
     .check = LabelCheck::notZero,
     .words = {u"１ページ内の行数 エラー", u"「１ページ内の行数」 が 数値入力されていません。　　　",
               u"「１ページ内の行数」 に ０ は入力できません。"},
     .saving = {u"PageRows", 8, LabelTakes::count},
     .next = width},
    {.field = width,
     .control = "txtWHPich_0",
     .labels = {"lblWHPich_0", "lblWHUnit_0"},
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"ラベル幅 エラー", u"「ラベル幅」 が 数値入力されていません。　　　"},
     .saving = {u"WPich", 5},
     .next = name},
    {.field = name,
     .control = "chkName",
     .fresh = u"0",
     .saving = {u"Name", 10, LabelTakes::tick},
     .next = nameX},
    {.field = nameX,
     .control = "txtNameXYpoint_0",
     .labels = {"lblNameX_0", "lblNameUnit_0"},
     .fresh = noDistance,
     .follows = name,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"名称印刷 ： 横 エラー", u"「名称印刷 ： 横」 が 数値入力されていません。　　　"},
     .saving = {u"NameXPoint", 14},
     .next = nameY},
    {.field = nameY,
     .control = "txtNameXYpoint_1",
     .labels = {"lblNameY_1", "lblNameUnit_1"},
     .fresh = noDistance,
     .follows = name,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"名称印刷 ： 縦 エラー", u"「名称印刷 ： 縦」 が 数値入力されていません。　　　"},
     .saving = {u"NameYPoint", 15},
     .next = code},
    {.field = code,
     .control = "chkCode",
     .fresh = u"0",
     .saving = {u"Code", 9, LabelTakes::tick},
     .next = codeX},
    {.field = codeX,
     .control = "txtCodeXYpoint_0",
     .labels = {"lblCodeX_0", "lblCodeUnit_0"},
     .fresh = noDistance,
     .follows = code,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"コード印刷 ： 横 エラー", u"「コード印刷 ： 横」 が 数値入力されていません。　　　"},
     .saving = {u"CodeXPoint", 16},
     .next = codeY},
    {.field = codeY,
     .control = "txtCodeXYpoint_1",
     .labels = {"lblCodeY_1", "lblCodeUnit_1"},
     .fresh = noDistance,
     .follows = code,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"コード印刷 ： 縦 エラー", u"「コード印刷 ： 縦」 が 数値入力されていません。　　　"},
     .saving = {u"CodeYPoint", 17},
     .next = screenCodes},
    {.field = screenCodes,
     .control = "chkKinou_0",
     .fresh = u"0",
     .saving = {u"Kinou0", 11, LabelTakes::tick},
     .next = screenX},
    {.field = screenX,
     .control = "txtKinouXYpoint_0",
     .labels = {"lblKinouX_0", "lblKinouUnit_0"},
     .fresh = noDistance,
     .follows = screenCodes,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"画面切替 印刷 ： 横 エラー", u"「画面切替 印刷 ： 横」 が 数値入力されていません。　　　"},
     .saving = {u"KinouXPoint0", 18},
     .next = screenY},
    {.field = screenY,
     .control = "txtKinouXYpoint_1",
     .labels = {"lblKinouY_1", "lblKinouUnit_1"},
     .fresh = noDistance,
     .follows = screenCodes,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"画面切替 印刷 ： 縦 エラー", u"「画面切替 印刷 ： 縦」 が 数値入力されていません。　　　"},
     .saving = {u"KinouYPoint0", 19},
     .next = searchCodes},
    {.field = searchCodes,
     .control = "chkKinou_1",
     .fresh = u"0",
     .saving = {u"Kinou1", 12, LabelTakes::tick},
     .next = searchX},
    {.field = searchX,
     .control = "txtKinouXYpoint_2",
     .labels = {"lblKinouX_2", "lblKinouUnit_2"},
     .fresh = noDistance,
     .follows = searchCodes,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"検索機能 印刷 ： 横 エラー", u"「検索機能 印刷 ： 横」 が 数値入力されていません。　　　"},
     .saving = {u"KinouXPoint1", 20},
     .next = searchY},
    {.field = searchY,
     .control = "txtKinouXYpoint_3",
     .labels = {"lblKinouY_3", "lblKinouUnit_3"},
     .fresh = noDistance,
     .follows = searchCodes,
     .typing = measure,
     .check = LabelCheck::number,
     .words = {u"検索機能 印刷 ： 縦 エラー", u"「検索機能 印刷 ： 縦」 が 数値入力されていません。　　　"},
     .saving = {u"KinouYPoint1", 21},
     .next = print},
    {.field = print, .control = "CmdOK", .next = print},
    {.field = eachRow,
     .control = "txtPrtNum",
     .fresh = u"1",
     .typing = labelNumber,
     .check = LabelCheck::number,
     .words = {u"ラベル印刷枚数 エラー", u"「ラベル印刷枚数」 が 数値入力されていません。　　　"},
     .next = startLabel},
    {.field = startLabel, .control = "cmbStart", .labels = {"lblStart"}, .next = startY},
    {.field = markedRows, .control = "optPrint_0", .fresh = u"1", .next = firstPage},
    {.field = rowRange, .control = "optPrint_1", .fresh = u"0", .next = firstRow},
    {.field = firstRow,
     .control = "txtLine_0",
     .labels = {"lblLine_0"},
     .follows = rowRange,
     .typing = rowNumber,
     .check = LabelCheck::notZero,
     .words = {u"印刷開始行 エラー", u"「印刷開始行」 が 数値入力されていません。　　　",
               u"「印刷開始行」 に ０ は入力できません。"},
     .next = lastRow},
    {.field = lastRow,
     .control = "txtLine_1",
     .labels = {"lblLine_1"},
     .follows = rowRange,
     .typing = rowNumber,
     .check = LabelCheck::notZero,
     .words = {u"印刷最終行 エラー", u"「印刷最終行」 が 数値入力されていません。　　　",
               u"「印刷最終行」 に ０ は入力できません。"},
     .next = firstPage},
    {.field = firstPage, .control = "txtPage_0", .fresh = u"0", .typing = pageNumber, .next = lastPage},
    {.field = lastPage, .control = "txtPage_1", .fresh = u"0", .typing = pageNumber, .next = position},
    {.field = position, .control = nullptr, .next = sheet},
    {.field = sheet, .control = nullptr, .saving = {u"Yousi", 13, LabelTakes::sheet}, .next = eachRow},
}};

constexpr bool rowsAreInOrder()
{
    for (std::size_t i = 0; i < table.size(); ++i)
        if (table.at(i).field != static_cast<LabelField>(i))
            return false;
    return true;
}
static_assert(rowsAreInOrder());

/// Each place from 1 to the number of saved fields is taken once.
constexpr bool placesAreWhole()
{
    const auto kept = [](const LabelFieldRow& row) { return row.saving.key != nullptr; };
    const auto places = std::count_if(table.begin(), table.end(), kept);
    for (int place = 1; place <= places; ++place)
        if (std::count_if(table.begin(), table.end(),
                          [&](const LabelFieldRow& row) { return kept(row) && row.saving.place == place; })
            != 1)
            return false;
    return true;
}
static_assert(placesAreWhole());

} // namespace

const std::array<LabelFieldRow, labelFieldCount>& labelFields()
{
    return table;
}

const LabelFieldRow& rowOf(LabelField field)
{
    return table.at(static_cast<std::size_t>(field));
}

int measureKeyCheck(int& keyAscii)
{
    const bool passes = (keyAscii >= '0' && keyAscii <= '9') || keyAscii == '-' || keyAscii == '.'
                        || keyAscii == KeyCode::ctrlC || keyAscii == KeyCode::backspace
                        || keyAscii == KeyCode::enter;
    if (!passes)
        keyAscii = 0;
    return keyAscii;
}

} // namespace suisui
