// Tab 2: how much of each goods item is on hand, and, in the detail view, how each figure came about. A
// pattern replaces what the grid shows; a single code is looked up in the grid and added when it is not
// there, so that the operator can gather a list. Nothing is changed here; the stock report prints the cells
// of the grid.
#pragma once

#include <memory>
#include <optional>

#include "frame/support/Frame.h"
#include "frame/support/GridBar.h"
#include "frame/support/Page.h"
#include "lists/ListPrinting.h"
#include "lists/StockRows.h"
#include "store/SqlText.h"

class QCheckBox;
class QRadioButton;

namespace Ui {
class StockPage;
}

namespace suisui {

class StockPage final : public Page
{
    Q_OBJECT

public:
    explicit StockPage(const Services& services, QWidget* parent = nullptr);
    ~StockPage() override;

    [[nodiscard]] QLineEdit* barCodeField() override;
    [[nodiscard]] vaSpread* grid() override;
    void setCaptions(const AppIni& ini) override;
    void setToday(const QString& text) override;
    /// Shown for the first time, or for the first time since a movement: the empty grid with plain headings.
    void firstShow() override;
    /// txtZBarCode_KeyPress.
    void barCode_KeyPress(int& keyAscii) override;

    /// StockListLoad: fills the grid from all rows of the row set.
    void stockListLoad();

    /// The two check boxes; the page colours a ticked one when the focus leaves it.
    [[nodiscard]] QCheckBox* lowBox();
    [[nodiscard]] QCheckBox* zeroBox();
    /// chkStock_Low_LostFocus, chkStock_Zero_LostFocus: a ticked box stays marked.
    static void check_LostFocus(QCheckBox& box);

    void setListPrinting(const ListPrinting& printing) { m_listPrinting.emplace(printing); }
    void cmdRptZList_Click();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void wire();
    static void keepRoom(QCheckBox& box);
    [[nodiscard]] bool detailView() const;
    void viewChosen();
    void headingClick(int col);
    void resetGrid();
    void plainHeadings();
    /// The words of the heading row after a search or a sort, whose order is that of \a sortedCol.
    void writeHeadings(int sortedCol);

    // StockSearch.cpp
    [[nodiscard]] QWidget* search(const QString& text);
    [[nodiscard]] QWidget* patternSearch(const std::string& pattern);
    [[nodiscard]] QWidget* singleSearch(const std::string& code);
    [[nodiscard]] QWidget* unregistered(const std::string& code);
    [[nodiscard]] SqlText selection(const std::string& code) const;
    [[nodiscard]] int shownRowOf(const QString& code) const;
    [[nodiscard]] QWidget* notUnderConditions(const std::string& code);
    /// StockRowInsert: the newest row of the row set on top of the grid.
    void stockRowInsert();
    [[nodiscard]] bool agreesToShow(int count);
    void waitIfLong(int count);
    void showFromTheTop();

    Services m_services;
    std::unique_ptr<Ui::StockPage> m_ui;
    std::optional<ListPrinting> m_listPrinting;
    StockRows m_rows;
    GridBar* m_bar = nullptr;
    int m_rowPointer = 0; ///< the row that the cursor has moved to since the headings were written; 0: none
    bool m_keyBusy = false;
};

} // namespace suisui
