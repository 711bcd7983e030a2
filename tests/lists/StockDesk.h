// The stock tab over a shop's database; it records what the tab asks of the window around it.
#pragma once

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "lists/StockPage.h"
#include "tests/support/ServiceDesk.h"

namespace suisui::test {

struct StockDesk : ServiceDesk
{
    StockDesk()
    {
        frame.tab = Tab::Stock;
        page.setCaptions(ini);
    }

    void goods(const std::string& code, const std::string& name, const std::string& stock,
               const std::string& lowest = "0", const std::string& carried = "0",
               const std::string& nyuPrice = "50", const std::string& syuPrice = "80",
               const std::string& unit = "個")
    {
        shop.add(masterTable, {code, name, "", "1", nyuPrice, "1", syuPrice, unit, lowest});
        if (!stock.empty())
            shop.add(zaikoTable, {code, stock, carried, "s", "s"});
    }
    void receipt(const std::string& code, const std::string& quantity, const std::string& price,
                 const std::string& unit = "個", const std::string& discount = "0000000",
                 const std::string& returned = "0000000")
    {
        shop.add(inpTable, {code, "", "", quantity, price, "", "", "20260401", "100000", unit, discount,
                            returned, "", "", "", stamp(), ""});
    }
    void shipment(const std::string& code, const std::string& quantity, const std::string& price,
                  const std::string& unit = "個", const std::string& discount = "0000000",
                  const std::string& returned = "0000000")
    {
        shop.add(outTable,
                 {code,     "",       "",        quantity, price, "", "", "20260401", "100000", unit,
                  discount, returned, "0000000", "",       "",    "", "", "",         stamp(),  ""});
    }
    /// \a count goods "G00001"... in stock, with names and figures made from their number.
    void manyGoods(int count)
    {
        const std::string numbers = "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<"
                                    + std::to_string(count) + ") INSERT INTO ";
        shop.execute(
            numbers + "Master SELECT printf('G%05d',i),'品'||i,'','1','50','1','80','個','0','s','s' FROM n");
        shop.execute(numbers + "ZaikoTB SELECT printf('G%05d',i),CAST(i AS TEXT),'0','s','s' FROM n");
    }

    /// Enter in the code field, which holds \a text.
    void search(const QString& text)
    {
        page.barCodeField()->setText(text);
        int key = 13;
        page.barCode_KeyPress(key);
    }
    [[nodiscard]] vaSpread& grid() { return *page.grid(); }
    [[nodiscard]] std::string text(int col, int row) { return std::string(grid().text(col, row)); }
    /// The cells of a row but for the hidden one, parted by "|".
    [[nodiscard]] std::string row(int number)
    {
        std::string all = text(StockCells::code, number);
        for (int col = StockCells::code + 1; col < StockCells::index; ++col)
            all += "|" + text(col, number);
        return all;
    }
    [[nodiscard]] std::string headings() { return row(0); }
    /// Codes of the goods rows from the top.
    [[nodiscard]] std::string codes()
    {
        std::string all;
        for (int number = 1; number <= grid().MaxRows(); ++number)
            if (!text(StockCells::code, number).empty())
                all += text(StockCells::code, number) + " ";
        return all;
    }
    template <typename Widget> Widget& control(const char* name)
    {
        auto* found = page.findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr)
            throw std::runtime_error(name);
        return *found;
    }
    QCheckBox& low() { return control<QCheckBox>("chkStock_Low"); }
    QCheckBox& zero() { return control<QCheckBox>("chkStock_Zero"); }
    QRadioButton& normal() { return control<QRadioButton>("optZNormal"); }
    QRadioButton& detail() { return control<QRadioButton>("optZDetail"); }

    StockPage page{services()};

private:
    std::string stamp()
    {
        std::string digits = std::to_string(++m_stamps);
        return std::string(14 - digits.size(), '0') + digits;
    }
    int m_stamps = 0;
};

} // namespace suisui::test
