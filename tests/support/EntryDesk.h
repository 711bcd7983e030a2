// An entry page over a shop's database, with everything that the page needs.
#pragma once

#include <memory>

#include <QComboBox>
#include <QLineEdit>

#include "movement/MovementPage.h"
#include "tests/support/ServiceDesk.h"

namespace suisui::test {

struct EntryDesk : ServiceDesk
{
    /// The page of \a side; goods must be in the shop when a code is booked.
    MovementPage& open(Side side)
    {
        frame.tab = side == Side::Receipt ? Tab::Receipt : Tab::Shipment;
        pages.push_back(std::make_unique<MovementPage>(side, services()));
        pages.back()->setPartners({{"101", QStringLiteral("東商店")}, {"102", QStringLiteral("西商店")}});
        const QString day = QStringLiteral("20260401");
        pages.back()->setDefaultDates(day, day);
        return *pages.back();
    }

    /// Types \a code into the code field and ends it with Enter, as the serial reader does.
    static void book(MovementPage& page, const QString& code)
    {
        page.barCodeField()->setText(code);
        int key = 13;
        page.barCode_KeyPress(key);
    }

    /// Changes a cell as an operator would.
    static void edit(MovementPage& page, int column, int row, std::string_view text)
    {
        page.grid()->SetText(column, row, text);
        page.cellChange(column, row);
    }

    void goods(const std::string& code, const std::string& name, const std::string& nyuSuu,
               const std::string& nyuPrice, const std::string& syuSuu, const std::string& syuPrice,
               const std::string& lowest = "0") const
    {
        shop.add(masterTable, {code, name, "", nyuSuu, nyuPrice, syuSuu, syuPrice, "個", lowest});
    }
    void component(const std::string& product, const std::string& part, const std::string& perUnit) const
    {
        shop.add(hseihinTable, {product, "", part, perUnit});
    }
    [[nodiscard]] std::string stockOf(const std::string& code) const
    {
        const auto rows = shop.query("SELECT ZaikoSuu FROM ZaikoTB WHERE Code='" + code + "'");
        return rows.empty() ? "none" : rows.front();
    }

    std::vector<std::unique_ptr<MovementPage>> pages;
};

} // namespace suisui::test
