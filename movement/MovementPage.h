// Tabs 0 and 1: goods coming in and goods going out, one class for both sides. A scanned or typed code stores
// a row, moves the stock and puts the row on top of the grid, all at once; corrections in the grid stay in
// memory until the update button.
#pragma once

#include <memory>

#include "booking/Correction.h"
#include "frame/support/Check_Csv.h"
#include "frame/support/Frame.h"
#include "frame/support/Page.h"
#include "movement/MovementSide.h"

namespace Ui {
class MovementPage;
}

namespace suisui {

class Booking;
class EntryGrid;
class RowSet;

class MovementPage final : public Page
{
    Q_OBJECT

public:
    MovementPage(Side side, const Services& services, QWidget* parent = nullptr);
    ~MovementPage() override;

    [[nodiscard]] QLineEdit* barCodeField() override;
    [[nodiscard]] vaSpread* grid() override;
    void setCaptions(const AppIni& ini) override;
    void setDefaultDates(const QString& from, const QString& to) override;
    void setToday(const QString& text) override;
    /// Shown for the first time, or for the first time since it was marked stale: searches its period.
    void firstShow() override;

    /// The partners that this side offers; item i of the combo box is entry i.
    void setPartners(const ChoiceList& partners);
    /// Shows the partner of a scanned code; false when the side does not offer one.
    bool choosePartner(const QString& code);
    [[nodiscard]] QComboBox* partnerChoice();
    [[nodiscard]] QWidget* printButton();

    /// txtNBarCode_KeyPress, txtSBarCode_KeyPress: every key of the code field; Enter books the code.
    void barCode_KeyPress(int& keyAscii) override;
    /// cmdNKensaku_Click, cmdSKensaku_Click: loads the movements of the period.
    void cmdKensaku_Click();
    /// cmdNKousin_Click, cmdSKousin_Click: writes all changed rows, posting only the differences.
    void cmdKousin_Click();
    /// cmdNDelete_Click, cmdSDelete_Click: removes the row under the cursor and undoes its stock effect.
    void cmdDelete_Click();
    /// cmdNPrint_Click, cmdSPrint_Click: labels for the rows as they are in the grid, saved or not.
    void cmdPrint_Click();
    /// InpCellChange, OutCellChange: takes a changed cell into the row buffer.
    void cellChange(int column, int row);

Q_SIGNALS:
    /// The operator wants labels: column of the marks, and of the quantity or noCell for one label each.
    void labelsWanted(int printColumn, int quantityColumn);

private:
    void nameControls();
    void wire();

    // Booking a code (MovementScan.cpp).
    [[nodiscard]] bool book(const QString& code);
    void putOnTop(const Booking& booking);
    void notStored();
    [[nodiscard]] bool rowAdd(Booking& booking);

    // Searching, and taking corrections into the row set (MovementSearch.cpp).
    [[nodiscard]] bool agreesToShow(int count);
    /// InpGridLoad, OutGridLoad: fills the grid from the row set, newest row first.
    void gridLoad();
    [[nodiscard]] bool wasCode(int row, int rowIndex);

    // Writing corrections, and deleting (MovementEdit.cpp).
    [[nodiscard]] bool agrees(const Box& question);
    void notWritten(EditResult result, bool deleting);
    void concurrentChange(bool deleting);

    [[nodiscard]] Books books() const { return {m_services.db, m_services.msgBox, m_services.clock}; }
    [[nodiscard]] QString term() const;
    /// The stock tab and this side's list have to read the database again.
    void markStale();

    const MovementSide& m_side;
    const MovementTable& m_table;
    Services m_services;
    RowSet& m_rows;
    std::unique_ptr<Ui::MovementPage> m_ui;
    std::unique_ptr<EntryGrid> m_entry;
    std::unique_ptr<Correction> m_edit;
    PeriodBoxes m_period;
    ChoiceList m_partners;
};

} // namespace suisui
