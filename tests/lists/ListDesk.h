// A movement list over a shop's database, with everything that the list needs.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "lists/MovementListPage.h"
#include "tests/support/ServiceDesk.h"
#include "tests/support/SideName.h"

namespace suisui::test {

/// A movement to be stored; texts as in the table.
struct Movement
{
    std::string date = "20260401";
    std::string code = "4901";
    std::string name = "りんご";
    std::string quantity = "0000001";
    std::string price = "0000100";
    std::string discount = "0000000";
    std::string returned1 = "0000000";
    std::string returned2 = "0000000";
    std::string partner = "101";
    std::string staff = "01";
    std::string unit = "個";
    std::string remark{};
};

struct ListDesk : ServiceDesk
{
    explicit ListDesk(Side which) : side(which)
    {
        frame.tab = side == Side::Receipt ? Tab::ReceiptList : Tab::ShipmentList;
        page = std::make_unique<MovementListPage>(side, services());
        page->setPartners({{"101", QStringLiteral("東商店")}, {"102", QStringLiteral("西商店")}});
        page->setStaff({{"01", QStringLiteral("山田")}, {"02", QStringLiteral("鈴木")}});
        period(QStringLiteral("20260101"), QStringLiteral("20261231"));
        page->firstShow();
    }

    /// Stores \a movements in one unit of work, in their order.
    void store(const std::vector<Movement>& movements)
    {
        const MovementTable& table = movementTable(side);
        const MovementColumns& columns = table.columns;
        RowSet rows(db, table.table);
        rows.NewRows(static_cast<int>(movements.size()));
        for (int i = 1; i <= rows.Count(); ++i) {
            const Movement& m = movements[static_cast<std::size_t>(i - 1)];
            const std::pair<int, std::string> texts[] = {
                {columns.code, m.code},
                {columns.name, m.name},
                {columns.quantity, m.quantity},
                {columns.price, m.price},
                {columns.partnerCode, m.partner},
                {columns.partnerName, partnerName(m.partner)},
                {columns.date, m.date},
                {columns.time, "101500"},
                {columns.unit, m.unit},
                {columns.discount, m.discount},
                {columns.returned[0], m.returned1},
                {columns.returned[1], m.returned2},
                {columns.staffCode, m.staff},
                {columns.staffName, m.staff == "01" ? "山田" : "鈴木"},
                {columns.remark, m.remark},
                {columns.inpDate, std::to_string(20260000000000 + ++stored)},
                {columns.updDate, std::to_string(20260000000000 + stored)}};
            for (const auto& [column, text] : texts)
                if (column != noColumn)
                    rows.set(i, column, text);
        }
        if (rows.WriteRows() != DbStatus::Good)
            std::abort();
        db.Commit();
    }

    /// \a count movements of one day.
    void storeMany(int count)
    {
        std::vector<Movement> many(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i)
            many[static_cast<std::size_t>(i)].code = std::to_string(1000000 + i);
        store(many);
    }

    void goods(const std::string& code, const std::string& name) const
    {
        shop.add(masterTable, {code, name, "", "1", "100", "1", "120", "個", "0"});
    }

    void period(const QString& from, const QString& to) const { page->setDefaultDates(from, to); }

    /// Puts \a text into the code field, followed by Enter.
    void enter(const QString& text) const
    {
        page->barCodeField()->setText(text);
        int key = 13;
        page->barCode_KeyPress(key);
    }
    void search() const { page->cmdKensaku_Click(); }
    /// The operator moves the cursor to a cell.
    void goTo(int col, int row) const
    {
        page->grid()->setCurrentIndex(page->grid()->model()->index(row - 1, col - 1));
    }
    void clickHeading(int col) const { Q_EMIT grid().HeadingClick(col); }

    /// The control whose name has the letter of the side in place of the X.
    template <typename Widget> [[nodiscard]] Widget& control(QString name) const
    {
        name.replace(u'X', side == Side::Receipt ? u'N' : u'S');
        auto* found = page->findChild<Widget*>(name);
        if (found == nullptr)
            std::abort();
        return *found;
    }
    [[nodiscard]] QString goodsCaption() const
    {
        return control<QLabel>(QStringLiteral("lblXLSyouhin")).text();
    }
    [[nodiscard]] QCheckBox& sumBox() const { return control<QCheckBox>(QStringLiteral("chkXLSum")); }

    [[nodiscard]] vaSpread& grid() const { return *page->grid(); }
    [[nodiscard]] std::string cell(int col, int row) const { return std::string(grid().text(col, row)); }
    /// The cells of a row except the hidden one, joined by "|".
    [[nodiscard]] std::string row(int number) const
    {
        std::string joined = cell(1, number);
        for (int col = 2; col < cells.index; ++col)
            joined += "|" + cell(col, number);
        return joined;
    }
    [[nodiscard]] std::vector<std::string> rows() const
    {
        std::vector<std::string> all;
        for (int number = 1; number <= grid().MaxRows(); ++number)
            all.push_back(row(number));
        return all;
    }
    [[nodiscard]] bool isShipment() const { return side == Side::Shipment; }
    /// What differs between the sides: the first for receipts, the second for shipments.
    template <typename T> [[nodiscard]] T bySide(T receipt, T shipment) const
    {
        return isShipment() ? shipment : receipt;
    }

    static std::string partnerName(const std::string& code)
    {
        return code == "101" ? "東商店" : (code == "102" ? "西商店" : "先" + code);
    }

    Side side;
    const ListCells& cells = listSide(side).cells;
    std::unique_ptr<MovementListPage> page;
    long long stored = 0;
};

} // namespace suisui::test
