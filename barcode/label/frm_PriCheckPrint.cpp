// The checks behind the OK button, and the print.
#include <algorithm>

#include "barcode/label/LabelPrint.h"
#include "barcode/label/frm_PriCheck.h"
#include "frame/support/KeyField.h"
#include "platform/core/FillIn.h"
#include "platform/widgets/BarPrt.h"
#include "platform/widgets/EnterButton.h"
#include "platform/widgets/Hourglass.h"
#include "platform/core/MsgBox.h"
#include "platform/widgets/vaSpread.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

enum class Must {
    BeANumber,
    NotBeZero,
    NotRoundToZero, ///< as a whole number
};

enum class When {
    Always,
    Enabled,
    Ticked, ///< the box that it belongs to is enabled and ticked
};

using Field = KeyField* Ui::frm_PriCheck::*;
using TickBox = QCheckBox* Ui::frm_PriCheck::*;

struct FieldCheck
{
    Field field;
    const char16_t* title;
    const char16_t* firstLine;
    Must must;
    When when = When::Always;
    TickBox box = nullptr;
};

using Form = Ui::frm_PriCheck;

// In the order in which the operator is told.
constexpr FieldCheck fieldChecks[] = {
    {&Form::txtXYpoint_1, u"印刷開始位置 ： 縦 エラー",
     u"「印刷開始位置 ： 縦」 が 数値入力されていません。　　　", Must::BeANumber},
    {&Form::txtXYpoint_0, u"印刷開始位置 ： 横 エラー",
     u"「印刷開始位置 ： 横」 が 数値入力されていません。　　　", Must::BeANumber},
    {&Form::txtOnePageNum_0, u"１ページ内の列数 エラー",
     u"「１ページ内の列数」 が 数値入力されていません。　　　", Must::BeANumber},
    {&Form::txtOnePageNum_0, u"１ページ内の列数 エラー", u"「１ページ内の列数」 に ０ は入力できません。",
     Must::NotBeZero},
    {&Form::txtBarHeight, u"線高 エラー", u"「線高」 が 数値入力されていません。　　　", Must::BeANumber},
    {&Form::txtBarHeight, u"線高 エラー", u"「線高」 に １ より小さい数値は入力できません。",
     Must::NotRoundToZero},
    {&Form::txtWHPich_1, u"ラベル高 エラー", u"「ラベル高」 が 数値入力されていません。　　　",
     Must::BeANumber, When::Enabled},
    {&Form::txtOnePageNum_1, u"１ページ内の行数 エラー",
     u"「１ページ内の行数」 が 数値入力されていません。　　　", Must::BeANumber},
    {&Form::txtOnePageNum_1, u"１ページ内の行数 エラー", u"「１ページ内の行数」 に ０ は入力できません。",
     Must::NotBeZero},
    {&Form::txtWHPich_0, u"ラベル幅 エラー", u"「ラベル幅」 が 数値入力されていません。　　　",
     Must::BeANumber, When::Enabled},
    {&Form::txtNameXYpoint_0, u"名称印刷 ： 横 エラー",
     u"「名称印刷 ： 横」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked, &Form::chkName},
    {&Form::txtNameXYpoint_1, u"名称印刷 ： 縦 エラー",
     u"「名称印刷 ： 縦」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked, &Form::chkName},
    {&Form::txtCodeXYpoint_0, u"コード印刷 ： 横 エラー",
     u"「コード印刷 ： 横」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkCode},
    {&Form::txtCodeXYpoint_1, u"コード印刷 ： 縦 エラー",
     u"「コード印刷 ： 縦」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkCode},
    {&Form::txtKinouXYpoint_0, u"画面切替 印刷 ： 横 エラー",
     u"「画面切替 印刷 ： 横」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkKinou_0},
    {&Form::txtKinouXYpoint_1, u"画面切替 印刷 ： 縦 エラー",
     u"「画面切替 印刷 ： 縦」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkKinou_0},
    {&Form::txtKinouXYpoint_2, u"検索機能 印刷 ： 横 エラー",
     u"「検索機能 印刷 ： 横」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkKinou_1},
    {&Form::txtKinouXYpoint_3, u"検索機能 印刷 ： 縦 エラー",
     u"「検索機能 印刷 ： 縦」 が 数値入力されていません。　　　", Must::BeANumber, When::Ticked,
     &Form::chkKinou_1},
    {&Form::txtPrtNum, u"ラベル印刷枚数 エラー", u"「ラベル印刷枚数」 が 数値入力されていません。　　　",
     Must::BeANumber},
};

// The same for the range of rows.
constexpr FieldCheck rowChecks[] = {
    {&Form::txtLine_0, u"印刷開始行 エラー", u"「印刷開始行」 が 数値入力されていません。　　　",
     Must::BeANumber},
    {&Form::txtLine_0, u"印刷開始行 エラー", u"「印刷開始行」 に ０ は入力できません。", Must::NotBeZero},
    {&Form::txtLine_1, u"印刷最終行 エラー", u"「印刷最終行」 が 数値入力されていません。　　　",
     Must::BeANumber},
    {&Form::txtLine_1, u"印刷最終行 エラー", u"「印刷最終行」 に ０ は入力できません。", Must::NotBeZero},
};

const QString noNumber = u"\r\n\r\n数値入力した後に、再度、印刷して下さい。"_s;
const QString tooSmall = u"\r\n\r\n１ 以上の数値を入力した後に、再度、印刷して下さい。　　　"_s;

/// Pages that a print may have at most: what the fields for pages can name.
constexpr std::int32_t mostPages = 9999;

bool applies(const FieldCheck& check, const Form& form)
{
    switch (check.when) {
    case When::Enabled:
        return (form.*check.field)->isEnabled();
    case When::Ticked:
        return (form.*check.box)->isEnabled() && (form.*check.box)->isChecked();
    case When::Always:
        break;
    }
    return true;
}

bool passes(const FieldCheck& check, const QString& text)
{
    switch (check.must) {
    case Must::BeANumber:
        return isNumeric(text);
    case Must::NotBeZero:
        return numberIn(text) != 0;
    case Must::NotRoundToZero:
        break;
    }
    return nearestDot(numberIn(text)) != 0;
}

} // namespace

/// Tells the operator and puts the focus on \a field. Always false.
bool frm_PriCheck::refuse(const QString& title, const QString& text, QWidget* field)
{
    m_around.msgBox.show({title, text, BoxIcon::Stop});
    field->setFocus();
    return false;
}

bool frm_PriCheck::fieldsAreGood()
{
    const auto good = [this](const FieldCheck& check) {
        KeyField* field = (*m_ui).*check.field;
        if (!applies(check, *m_ui) || passes(check, field->text()))
            return true;
        return refuse(QString::fromUtf16(check.title),
                      QString::fromUtf16(check.firstLine)
                          + (check.must == Must::BeANumber ? noNumber : tooSmall),
                      field);
    };
    if (!std::all_of(std::begin(fieldChecks), std::end(fieldChecks), good))
        return false;
    if (m_ui->optPrint_0->isChecked()) {
        m_startRow = u"1"_s;
        return true;
    }
    return std::all_of(std::begin(rowChecks), std::end(rowChecks), good) && rowsAreGood();
}

/// A range that is turned round or too long is put right, and the operator looks at it.
bool frm_PriCheck::rowsAreGood()
{
    const QString first = m_txtLine[0]->text();
    const QString last = m_txtLine[1]->text();
    if (numberIn(last) < numberIn(first)) {
        refuse(u"印刷開始行 > 印刷最終行 エラー"_s,
               fillIn(u"「印刷最終行」 が 「印刷開始行」 よりも小さいです。　　　\r\n\r\n　　印刷開始行 ： "
                      u"{first}　　印刷最終行 ： {last}\r\n\r\n「印刷最終行」 と 「印刷開始行」 "
                      u"を入れ替えます。\r\n\r\n　　確認した後に、再度、印刷して下さい。",
                      {{u"first", first}, {u"last", last}}),
               m_txtLine[0]);
        m_txtLine[0]->setText(last);
        m_txtLine[1]->setText(first);
        return false;
    }
    if (numberIn(last) > numberIn(m_endRow)) {
        m_around.msgBox.show(
            {u"印刷可能範囲 < 印刷最終行 エラー"_s,
             fillIn(
                 u"「印刷最終行」 が 印刷可能な範囲を超えています。　　　\r\n\r\n　　印刷可能範囲 ： 1 ～ "
                 u"{EndRow} 行\r\n\r\n　　「印刷開始行」 と 「印刷最終行」 "
                 u"に\r\n　　　印刷可能な範囲を設定します。\r\n\r\n　　確認した後に、再度、印刷して下さい。",
                 {{u"EndRow", m_endRow}}),
             BoxIcon::Stop});
        m_txtLine[0]->setText(u"1"_s);
        m_txtLine[1]->setText(m_endRow);
        m_txtLine[1]->setFocus();
        return false;
    }
    return true;
}

/// There is something to print, and not more than the fields for pages can name.
bool frm_PriCheck::enoughToPrint()
{
    if (m_pageTotal < 1) {
        m_around.msgBox.show(
            {u"印刷する情報なし エラー"_s,
             u"印刷する情報がありません。\r\n\r\n印刷する条件が正しいか確認した後に　　　\r\n再度、印刷して下さい。"_s,
             BoxIcon::Stop});
        return false;
    }
    if (labelPageRange(m_txtPage[0]->text(), m_txtPage[1]->text(), m_pageTotal).last <= mostPages)
        return true;
    return refuse(
        u"ページ指定 エラー"_s,
        u"一度に 印刷できるのは %1 ページまでです。　　　\r\n\r\n「数量」 と 「ページ指定」 を確認した後に、再度、印刷して下さい。"_s
            .arg(mostPages),
        m_txtPage[1]);
}

void frm_PriCheck::CmdOK_Click()
{
    if (m_printing || !fieldsAreGood() || !enoughToPrint())
        return;
    m_printing = true;
    m_gate.setEnabled(false);
    m_scan->stop();
    m_around.barPrt.setOrientation(portrait);
    const bool goOn = m_around.barPrt.choosePrinter(this) == 1;
    if (goOn) { // while the printer is chosen the operator is asked, not kept waiting
        QGuiApplication::setOverrideCursor(hourglass());
        print();
        QGuiApplication::restoreOverrideCursor();
    }
    m_gate.setEnabled(true);
    m_printing = false;
    if (goOn) {
        m_printed = true;
        accept();
        return;
    }
    m_scan->start();
}

void frm_PriCheck::print()
{
    const bool range = m_ui->optPrint_1->isChecked();
    m_startRow = range ? m_txtLine[0]->text() : u"1"_s;
    m_endRow = range ? m_txtLine[1]->text() : QString::number(m_source.lastRow);
    LabelJob wanted = job();
    m_source.grid->setReDraw(false); // every row that is walked loses its mark
    if (range)
        for (std::int64_t row = wanted.startRow; row <= wanted.endRow; ++row)
            m_rows.setMark(row, true);
    m_around.barPrt.startDocument();
    wanted.pages = labelPageRange(m_txtPage[0]->text(), m_txtPage[1]->text(), m_pageTotal);
    setPages(QString::number(wanted.pages.first), QString::number(wanted.pages.last));
    LabelPrintOut(wanted, m_rows, m_around.ini, m_around.barPrt);
    m_around.barPrt.endDocument();
    m_source.grid->setReDraw(true);
    saveSettings();
}

/// What the fields say now. Without good numbers of columns and rows the sheet has no labels.
LabelJob frm_PriCheck::job() const
{
    const auto number = [](const QLineEdit* field) { return numberIn(field->text()); };
    const auto whenEnabled = [&](const QLineEdit* field) { return field->isEnabled() ? number(field) : 0; };
    const auto part = [&](const Part& each) {
        return LabelPart{each.box->isChecked(), {number(each.place[0]), number(each.place[1])}};
    };
    const bool range = m_ui->optPrint_1->isChecked();
    LabelJob wanted;
    wanted.grid = {.columns = std::max<std::int64_t>(labelsOf(number(m_txtOnePageNum[0])), 1),
                   .rows = std::max<std::int64_t>(labelsOf(number(m_txtOnePageNum[1])), 0),
                   .start = {number(m_ui->txtXYpoint_0), number(m_ui->txtXYpoint_1)},
                   .width = whenEnabled(m_txtWHPich[0]),
                   .height = whenEnabled(m_txtWHPich[1])};
    wanted.startLabel = std::max(m_ui->cmbStart->currentIndex(), 0) + 1;
    wanted.barHeight = number(m_ui->txtBarHeight);
    wanted.name = part(m_name);
    wanted.code = part(m_code);
    wanted.screenCodes = part(m_kinou[0]);
    wanted.searchCodes = part(m_kinou[1]);
    wanted.wrap = LabelWrap;
    wanted.startRow = range ? std::max<std::int64_t>(labelsOf(number(m_txtLine[0])), 1) : 1;
    wanted.endRow = range ? labelsOf(number(m_txtLine[1])) : m_source.lastRow;
    wanted.eachRow = labelsOf(number(m_ui->txtPrtNum));
    return wanted;
}

} // namespace suisui
