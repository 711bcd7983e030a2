// Searching the stock: by a pattern, or for a single code that joins what the grid shows.
#include <QCheckBox>

#include "frame/support/KeyField.h"
#include "frame/support/Questions.h"
#include "platform/widgets/ReDrawOff.h"
#include "lists/StockPage.h"
#include "platform/core/FillIn.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Where.h"
#include "ui_StockPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowsWithoutAsking = 1000;
constexpr int detailedRowsWithoutAsking = 500;
constexpr int detailedRowsWithoutWaitWindow = 30;

} // namespace

/// Gives back where the operator goes on; null where the focus stays.
QWidget* StockPage::search(const QString& text)
{
    const bool pattern = text.contains(u'*') || text.contains(u'?');
    const std::string code = text.toStdString();
    if (!canBeCode(code))
        return unregistered(code);
    QWidget* const next = pattern ? patternSearch(code) : singleSearch(code);
    if (next == grid())
        m_services.frame.setTabLoaded(Tab::Stock, true);
    return next;
}

QWidget* StockPage::unregistered(const std::string& code)
{
    sayUnregistered(m_services.msgBox, m_services.ini, code);
    return m_ui->txtZBarCode;
}

/// The condition of a search, with those of the check boxes.
SqlText StockPage::selection(const std::string& code) const
{
    SqlText where = "Where ZaikoTB.Code Like " + bound(code) + " ";
    if (!m_ui->chkStock_Zero->isChecked())
        where += " And ZaikoSuu <> '0' ";
    if (m_ui->chkStock_Low->isChecked())
        where += " And Cdbl(Master.Stock) > Cdbl(ZaikoTB.ZaikoSuu) ";
    return where + " Order by ZaikoTB.code";
}

bool StockPage::agreesToShow(int count)
{
    if (count <= (detailView() ? detailedRowsWithoutAsking : rowsWithoutAsking))
        return true;
    return agreesToManyRows(m_services.frame, m_services.msgBox, count);
}

/// Shows the wait window when \a count goods take long enough for one.
void StockPage::waitIfLong(int count)
{
    if (count > (detailView() ? detailedRowsWithoutWaitWindow : rowsWithoutAsking))
        m_services.frame.showWait(u"在庫検索"_s, count);
}

QWidget* StockPage::patternSearch(const std::string& pattern)
{
    ZaikoViewRec& goods = m_services.db.ZaikoViewTbl();
    const int count = goods.Select(selection(pattern), {});
    if (!agreesToShow(count)) {
        goods.Clear();
        return nullptr;
    }
    waitIfLong(count);
    goods.setKeepRows(false);
    stockListLoad();
    if (count > 0)
        showFromTheTop();
    return grid();
}

/// Moves the bar to the first row, scrolls to the first columns, and writes the headings of a fresh search.
void StockPage::showFromTheTop()
{
    m_bar->move(0, 1);
    grid()->SetActiveCell(StockCells::receiptPrice, 1);
    grid()->SetActiveCell(StockCells::quantity, 1);
    writeHeadings(StockCells::code);
}

void StockPage::stockListLoad()
{
    vaSpread& sheet = *grid();
    Frame& frame = m_services.frame;
    ZaikoViewRec& goods = m_services.db.ZaikoViewTbl();
    const bool detailed = detailView();
    const bool waiting = frame.waitVisible();
    const ReDrawOff noRedraw(sheet);
    const int count = goods.Count();
    sheet.setMaxRows(0);
    if (!detailed)
        sheet.setMaxRows(count);
    StockDetail detail(m_services.db, detailed ? count : 0);
    int row = 0;
    for (int i = 1; i <= count; ++i) {
        ++row;
        if (detailed) {
            const StockBlock block = detail.block(goods, i);
            const int lines = static_cast<int>(block.size());
            sheet.setMaxRows(row + lines);
            sheet.setRowBackColor(row, goodsRowWithBlock);
            m_rows.putBlock(row + 1, block);
            m_rows.putGoods(row, goods, i);
            row += lines;
        } else {
            m_rows.putGoods(row, goods, i);
        }
        if (waiting)
            frame.setWaitProgress(i);
    }
}

QWidget* StockPage::singleSearch(const std::string& code)
{
    if (const int row = shownRowOf(QString::fromStdString(code)); row > 0) {
        m_bar->move(grid()->ActiveRow(), row);
        grid()->SetActiveCell(StockCells::receiptPrice, row);
        grid()->SetActiveCell(StockCells::quantity, row);
        m_rowPointer = row;
        return grid();
    }
    MasterRec& master = m_services.db.MasterSyu();
    const bool registered = master.Select(whereCode(code)) > 0;
    master.Clear();
    if (!registered)
        return unregistered(code);
    ZaikoViewRec& goods = m_services.db.ZaikoViewTbl();
    goods.setKeepRows(true);
    const int before = goods.Count();
    if (goods.Select(selection(code), "1") <= before)
        return notUnderConditions(code);
    goods.setKeepRows(false);
    stockRowInsert();
    grid()->SetActiveCell(StockCells::receiptPrice, 1);
    grid()->SetActiveCell(StockCells::quantity, 1);
    writeHeadings(StockCells::code);
    return grid();
}

/// Grid row that shows \a code, 0 when none does.
int StockPage::shownRowOf(const QString& code) const
{
    const vaSpread& sheet = *m_ui->Sprd_Zai;
    const QString wanted = code.toUpper();
    for (int row = 1; row <= sheet.MaxRows(); ++row)
        if (sheet.qtext(StockCells::code, row).toUpper() == wanted)
            return row;
    return 0;
}

/// The goods are known, but the check boxes hide them. The row set is emptied although the grid keeps its
/// rows.
QWidget* StockPage::notUnderConditions(const std::string& code)
{
    m_services.msgBox.show(
        {u" 在庫数 非該当"_s,
         fillIn(u"入力された コード 「 {text} 」 は\r\n表示条件の\r\n「最低在庫数未満のみ表示」 "
                u"「在庫数０も表示」 に　　　\r\n該当しませんでした。\r\n\r\n　 "
                u"表示条件をかえて、再度、検索して下さい。　　",
                {{u"text", QString::fromStdString(code)}}),
         BoxIcon::Exclamation});
    m_services.db.ZaikoViewTbl().Clear();
    return m_ui->chkStock_Low;
}

void StockPage::stockRowInsert()
{
    vaSpread& sheet = *grid();
    ZaikoViewRec& goods = m_services.db.ZaikoViewTbl();
    const ReDrawOff noRedraw(sheet);
    const int barRow = sheet.ActiveRow();
    sheet.InsertRows(1);
    m_rows.putGoods(1, goods, goods.Count());
    // In the detail view the new row turns yellow only when the bar leaves it.
    m_bar->move(barRow > 0 ? barRow + 1 : 0, 1);
    if (!detailView())
        return;
    StockDetail detail(m_services.db, 1);
    const StockBlock block = detail.block(goods, goods.Count());
    sheet.InsertRows(2, static_cast<int>(block.size()));
    m_rows.putBlock(2, block);
}

} // namespace suisui
