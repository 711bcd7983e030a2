// Booking a code: from the Enter that ends it to the committed row on top of the grid.
#include "movement/MovementPage.h"

#include <algorithm>
#include <vector>

#include <QComboBox>

#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "booking/Components.h"
#include "booking/ZaikoPost.h"
#include "platform/core/Clock.h"
#include "platform/core/FillIn.h"
#include "platform/core/KeyCodes.h"
#include "platform/core/RunTimeError.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "store/Numbers.h"
#include "store/Stamps.h"
#include "store/Where.h"
#include "ui_MovementPage.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace suisui {

namespace {

constexpr auto longestNap = 50ms; // a clock that steps back is noticed this soon

} // namespace

/// Everything that one booking carries, taken once at its start.
struct MovementPage::Scan
{
    QDateTime moment;
    std::string stamp;
    std::string code; ///< of the goods master, not as typed
    std::string name;
    std::string unit;
    std::string quantity;
    std::string price;
};

void MovementPage::barCode_KeyPress(int& keyAscii)
{
    m_services.frame.BusyOn();
    CodeKeyCheck(keyAscii);
    limitLength(*m_ui->txtXBarCode, goodsCodeLength, true, keyAscii);
    const QString text = m_ui->txtXBarCode->text();
    if (keyAscii != KeyCode::enter || text.isEmpty()) {
        m_services.frame.BusyOff();
        return;
    }
    book(text.toStdString());
}

void MovementPage::book(const std::string& code)
{
    grid()->endEdit(); // a scan by the serial reader may find the operator in a cell
    Scan scan;
    scan.moment = m_services.clock.now();
    scan.stamp = stampOf(scan.moment);
    if (!lookUp(code, scan)) {
        unregistered(code);
        return;
    }
    if (!postScan(scan)) {
        m_services.db.Rollback();
        m_services.frame.BusyOff();
        return;
    }
    putBackPosted(); // by row, and the rows are about to move down
    const int barRow = grid()->ActiveRow();
    grid()->setReDraw(false);
    putOnTop(scan);
    m_table.master(m_services.db).Clear();
    if (rowAdd(scan.stamp)) {
        m_bar->move(barRow > 0 ? barRow + 1 : 0, 1); // the new row has pushed the barred one down
        cursorToQuantity();
        grid()->setReDraw(true);
    } else {
        notStored();
    }
    waitForNextSecond(scan);
    m_services.frame.setFormEnabled(true);
    grid()->setFocus();
    m_services.frame.BusyOff();
}

/// What the goods master says about \a code; false when it does not know it.
bool MovementPage::lookUp(const std::string& code, Scan& scan)
{
    RowSet& goods = m_table.master(m_services.db);
    if (!canBeCode(code) || goods.Select(whereCode(code)) <= 0)
        return false;
    const auto text = [&goods](MasterCol column) {
        return std::string(goods.get(1, static_cast<int>(column)));
    };
    const auto number = [&text](MasterCol column) {
        const std::string value = text(column);
        return value.empty() ? "0" : value;
    };
    scan.code = text(MasterCol::Code);
    scan.name = text(MasterCol::Name);
    scan.unit = text(MasterCol::Unit);
    scan.quantity = number(m_table.defaultQuantity);
    scan.price = number(m_table.defaultPrice);
    return true;
}

void MovementPage::unregistered(const std::string& code)
{
    const QString goods = m_services.ini.MasterTerm(0);
    m_services.msgBox.show(
        {fillIn(u"{goods} 未登録エラー", {{u"goods", goods}}),
         fillIn(u"入力された コード 「 {text} 」 は\r\n「{goods}」 に登録されていません。\r\n\r\n【基本情報 "
                u"登録】 で\r\n「{goods}」 に登録した後に、再度、入力して下さい。　　",
                {{u"goods", goods}, {u"text", QString::fromStdString(code)}}),
         BoxIcon::Stop});
    m_services.frame.BusyOff();
    m_ui->txtXBarCode->setFocus();
}

/// Components first, then the goods item itself.
bool MovementPage::postScan(const Scan& scan)
{
    if (m_table.movesComponents) {
        const auto delta = [&scan](std::string_view perUnit) {
            return componentScanDelta(perUnit, scan.quantity);
        };
        if (!postComponents(m_services.db, m_services.msgBox, scan.code, scan.stamp, delta))
            return false;
    }
    const std::string delta = m_table.stockSign > 0 ? scan.quantity : CStr(-numberOf(scan.quantity));
    std::string name = scan.name;
    return ZaikoPost(m_services.db, m_services.msgBox, scan.code, delta, name, scan.stamp)
           == PostResult::Posted;
}

void MovementPage::putOnTop(const Scan& scan)
{
    const MovementCells& cells = m_side.cells;
    std::vector<std::string> texts(static_cast<std::size_t>(grid()->MaxCols()));
    const auto put = [&texts](int cell, std::string text) {
        if (cell != noCell)
            texts.at(static_cast<std::size_t>(cell - 1)) = std::move(text);
    };
    put(cells.code, scan.code);
    put(cells.name, scan.name);
    put(cells.price, scan.price);
    put(cells.quantity, scan.quantity);
    put(cells.discount, "0");
    put(cells.total, Format(times(numberOf(scan.quantity), numberOf(scan.price)), maskA));
    put(cells.partner, m_ui->cmbXSaki->currentText().toStdString());
    put(cells.print, "1");
    put(cells.staff, m_services.frame.tantouName().toStdString());
    put(cells.unit, scan.unit);
    for (const int cell : cells.returned)
        put(cell, "0");
    put(cells.date, screenDate(scan.stamp.substr(0, 8)));
    put(cells.time, screenTime(scan.stamp.substr(8)));
    put(cells.postedReturned, "0");
    put(cells.postedQuantity, scan.quantity);
    put(cells.index, std::to_string(m_rows.Count() + 1));

    grid()->InsertRows(1);
    const std::vector<std::string_view> views(texts.begin(), texts.end());
    grid()->setRowTexts(1, views);
}

/// The row that was not stored stays in view until the next search; the count is what it was.
void MovementPage::notStored()
{
    m_services.msgBox.show(
        {u"データベースエラー"_s, QString::fromUtf16(m_side.insertErrorText), BoxIcon::Stop});
    grid()->setMaxRows(grid()->MaxRows() - 1);
    m_outOfStep = std::max(m_outOfStep - 1, 0);
}

/// InpRowAdd, OutRowAdd: stores row 1 of the grid and makes the booking permanent.
bool MovementPage::rowAdd(const std::string& stamp)
{
    const MovementCells& cells = m_side.cells;
    const MovementColumns& columns = m_table.columns;
    m_rows.NewRows(1);
    const int row = m_rows.Count();
    const auto cell = [this](int column) { return grid()->text(column, 1); };
    m_rows.set(row, columns.code, cell(cells.code));
    m_rows.set(row, columns.name, cell(cells.name));
    m_rows.set(row, columns.price, movementNumber(cell(cells.price)));
    m_rows.set(row, columns.quantity, movementNumber(cell(cells.quantity)));
    m_rows.set(row, columns.discount, movementNumber(cell(cells.discount)));
    m_rows.set(row, columns.partnerCode, choiceAt(m_partners, m_ui->cmbXSaki->currentIndex()).code);
    m_rows.set(row, columns.partnerName, m_ui->cmbXSaki->currentText().toStdString());
    m_rows.set(row, columns.staffCode, m_services.frame.tantouCode());
    m_rows.set(row, columns.staffName, m_services.frame.tantouName().toStdString());
    m_rows.set(row, columns.unit, cell(cells.unit));
    for (std::size_t i = 0; i < cells.returned.size(); ++i)
        if (cells.returned[i] != noCell)
            m_rows.set(row, columns.returned[i], movementNumber(cell(cells.returned[i])));
    m_rows.set(row, columns.date, storedDate(cell(cells.date)));
    m_rows.set(row, columns.time, storedTime(cell(cells.time)));
    m_rows.set(row, columns.remark, cell(cells.remark));
    m_rows.set(row, columns.inpDate, stamp);
    m_rows.set(row, columns.updDate, stamp);

    if (!commitWhen(m_rows.InsertRow(row)))
        return false;
    markStale();
    return true;
}

/// Makes the movement permanent when its last write has gone well (\a status 0); otherwise nothing of it
/// stays.
bool MovementPage::commitWhen(int status)
{
    AppDB& db = m_services.db;
    if (status == 0) {
        db.Commit();
        status = db.LastStatus();
    }
    if (status != 0)
        db.Rollback();
    return status == 0;
}

/// A booking ends in a later second than the one in which it began, so that no two carry the same stamp.
/// When the wall clock steps back meanwhile, one second of steady time is enough.
void MovementPage::waitForNextSecond(const Scan& scan)
{
    Clock& clock = m_services.clock;
    const auto start = clock.steady();
    for (QDateTime now = clock.now(); stampOf(now) <= scan.stamp; now = clock.now()) {
        if (now < scan.moment && clock.steady() - start >= 1s)
            return;
        const std::chrono::milliseconds toNextSecond(1000 - now.time().msec());
        clock.letPass(std::min<std::chrono::milliseconds>(toNextSecond, longestNap));
    }
}

} // namespace suisui
