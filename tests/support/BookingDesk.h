// Booking and correcting without a screen: the rows of an entry tab are a list, boxes answer by script, and a
// day passes in a second.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "booking/Booking.h"
#include "booking/Correction.h"
#include "store/AppDB.h"
#include "store/Numbers.h"
#include "tests/support/ScriptedMsgBox.h"
#include "tests/support/TempShop.h"
#include "tests/support/TestClock.h"

namespace suisui::test {

/// Rows as the grid of an entry tab keeps them, the newest first.
class ListedRows final : public EntryRows
{
public:
    struct Row
    {
        int index = 0;
        std::string code;
        Figures shown;
        Figures posted;
    };

    [[nodiscard]] int count() const override { return static_cast<int>(rows.size()); }
    [[nodiscard]] int bufferIndex(int row) const override { return at(row).index; }
    [[nodiscard]] std::string code(int row) const override { return at(row).code; }
    [[nodiscard]] Figures shown(int row) const override { return at(row).shown; }
    [[nodiscard]] Figures posted(int row) const override { return at(row).posted; }
    void setPosted(int row, const Figures& figures) override { at(row).posted = figures; }
    void putBack(int row, const Figures& posted, const std::string& total) override
    {
        at(row).shown = posted;
        totalPutBack = total;
    }

    [[nodiscard]] Row& at(int row) { return rows.at(static_cast<std::size_t>(row - 1)); }
    [[nodiscard]] const Row& at(int row) const { return rows.at(static_cast<std::size_t>(row - 1)); }

    std::vector<Row> rows;
    std::string totalPutBack;
};

enum class BookResult { Stored, Unknown, Refused, NotStored };

/// One entry tab: what its page does with booking and correction, and nothing else.
class EntryTab
{
public:
    EntryTab(Side side, const Books& books)
        : m_side(side), m_books(books), m_table(movementTable(side)), edit(side, books, view)
    {
    }

    BookResult book(const std::string& code)
    {
        Booking booking(m_side, m_books);
        if (!booking.lookUp(code))
            return BookResult::Unknown;
        if (!booking.post())
            return BookResult::Refused;
        edit.beforeNewRow();
        MovementTexts row = booking.row();
        row.partnerCode = "101";
        row.partnerName = "東商店";
        row.staffCode = "01";
        row.staffName = "山田";
        const Figures figures{.quantity = numberOf(row.quantity)};
        view.rows.insert(view.rows.begin(), {rows().Count() + 1, row.code, figures, figures});
        const bool stored = booking.store(row);
        if (!stored) {
            view.rows.pop_back();
            edit.bottomRowGone();
        }
        booking.waitForNextSecond();
        return stored ? BookResult::Stored : BookResult::NotStored;
    }

    /// Types other figures into a row. A shipment takes its returns too, and they never reach the stock.
    void type(int row, double quantity, double returned)
    {
        const MovementColumns& columns = m_table.columns;
        ListedRows::Row& listed = view.at(row);
        (void)edit.take(listed.index, columns.quantity, CellForm::Number, CStr(quantity));
        (void)edit.take(listed.index, columns.returned[0], CellForm::Number, CStr(returned));
        listed.shown = {.quantity = quantity, .returned = m_table.returnsMoveStock ? returned : 0};
    }

    EditResult erase(int row)
    {
        const int index = view.bufferIndex(row);
        const EditResult result = edit.erase(row);
        if (result != EditResult::Done)
            return result;
        view.rows.erase(view.rows.begin() + (row - 1));
        for (ListedRows::Row& each : view.rows)
            each.index -= each.index > index ? 1 : 0;
        return result;
    }

    /// Reads all movements anew.
    void search()
    {
        const MovementColumns& columns = m_table.columns;
        rows().Select("ORDER BY InpDate");
        edit.searched(true);
        view.rows.clear();
        for (int i = rows().Count(); i >= 1; --i) {
            const auto number = [&](int column) { return numberOf(rows().get(i, column)); };
            const Figures figures{.quantity = number(columns.quantity),
                                  .returned = m_table.returnsMoveStock ? number(columns.returned[0]) : 0};
            view.rows.push_back({i, std::string(rows().get(i, columns.code)), figures, figures});
        }
    }

    [[nodiscard]] RowSet& rows() { return m_table.rows(m_books.db); }

private:
    Side m_side;
    Books m_books;
    const MovementTable& m_table;

public:
    ListedRows view;
    Correction edit;
};

/// A shop's database with both entry tabs over it.
struct BookingDesk
{
    BookingDesk()
        : db(shop.databaseFolder(), [this](const std::string& text) { storeSaid.push_back(text); }),
          receipts(Side::Receipt, {db, box, clock}), shipments(Side::Shipment, {db, box, clock})
    {
        if (db.Open("trnvik.mdb") != DbStatus::Good)
            throw std::runtime_error("no database in " + shop.databaseFolder());
    }

    [[nodiscard]] EntryTab& tab(Side side) { return side == Side::Receipt ? receipts : shipments; }

    void goods(const std::string& code, const std::string& nyuSuu, const std::string& syuSuu,
               const std::string& lowest = "0") const
    {
        shop.add(masterTable, {code, "品 " + code, "", nyuSuu, "100", syuSuu, "150", "個", lowest});
    }
    void component(const std::string& product, const std::string& part, const std::string& perUnit) const
    {
        shop.add(hseihinTable, {product, "", part, perUnit});
    }
    void stock(const std::string& code, const std::string& figure) const
    {
        shop.add(zaikoTable, {code, figure, figure, "20260101000000", "20260101000000"});
    }
    [[nodiscard]] std::string stockOf(const std::string& code) const
    {
        const auto found = shop.query("SELECT ZaikoSuu FROM ZaikoTB WHERE Code='" + code + "'");
        return found.empty() ? "none" : found.front();
    }

    TempShop shop;
    std::vector<std::string> storeSaid; ///< the boxes that the store itself would show
    AppDB db;
    ScriptedMsgBox box;
    TestClock clock;
    EntryTab receipts;
    EntryTab shipments;
};

} // namespace suisui::test
