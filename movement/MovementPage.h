// Tabs 0 and 1: goods coming in and goods going out. One page class over a side. A code that is scanned or
// typed stores a row, moves the stock and puts the row on top of the grid, all at once; corrections made in
// the grid stay in memory until the update button.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "frame/support/Check_Csv.h"
#include "frame/support/Frame.h"
#include "frame/support/GridBar.h"
#include "frame/support/Page.h"
#include "booking/Deltas.h"
#include "movement/MovementSide.h"

namespace Ui {
class MovementPage;
}

namespace suisui {

class EnterButton;
class KeyField;
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
    /// First sight of the tab, or the first after it was marked stale: the search of its period.
    void firstShow() override;

    /// Partners that this side offers; item i of the choice is entry i.
    void setPartners(const ChoiceList& partners);
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
    /// cmdNPrint_Click, cmdSPrint_Click: labels of the rows as they stand in the grid, saved or not.
    void cmdPrint_Click();
    /// InpCellChange, OutCellChange: takes a changed cell into the row buffer.
    void cellChange(int column, int row);
    /// InpGridLoad, OutGridLoad: fills the grid from the buffer, newest row first.
    void gridLoad();

Q_SIGNALS:
    /// The operator wants labels: column of the marks, column of the quantity or noCell for one of each row.
    void labelsWanted(int printColumn, int quantityColumn);

private:
    struct Scan;

    [[nodiscard]] const vaSpread* grid() const;
    void nameControls();
    void wire();

    // Booking a code (MovementScan.cpp).
    void book(const std::string& code);
    [[nodiscard]] bool lookUp(const std::string& code, Scan& scan);
    void unregistered(const std::string& code);
    [[nodiscard]] bool postScan(const Scan& scan);
    void putOnTop(const Scan& scan);
    void notStored();
    [[nodiscard]] bool rowAdd(const std::string& stamp);
    [[nodiscard]] bool commitWhen(int status);
    void waitForNextSecond(const Scan& scan);

    // Searching, and taking corrections into the buffer (MovementSearch.cpp).
    [[nodiscard]] bool agreesToShow(int count);
    void makeRow(const PackedRow& stored, int index, std::span<std::string> texts) const;
    [[nodiscard]] bool wasCode(int row, int rowIndex);
    [[nodiscard]] bool agreesToQuantity(const QString& typed, int row);
    [[nodiscard]] bool changeNumber(int column, int row, int rowIndex);
    [[nodiscard]] bool changeText(int column, int row, int rowIndex);
    /// Whether \a row still shows what the buffer holds for it.
    [[nodiscard]] bool inStep(int row) const;

    // Writing corrections, and deleting (MovementEdit.cpp).
    [[nodiscard]] bool updateRow(int row, const std::string& stamp);
    [[nodiscard]] bool postUpdate(int row, int rowIndex, const Figures& posted, const Figures& now,
                                  const std::string& stamp);
    void restorePosted(int row, int rowIndex, const Figures& posted);
    [[nodiscard]] bool writeRow(int rowIndex);
    void showPosted(int row, const Figures& figures);
    void putBackPosted();
    [[nodiscard]] bool agreesToDelete();
    [[nodiscard]] bool postDelete(int rowIndex, double delta, const std::string& stamp);
    void takeOutOfGrid(int row, int rowIndex);
    void notWritten(bool deleting);
    void concurrentChange(bool deleting);

    [[nodiscard]] Figures postedFigures(int row) const;
    [[nodiscard]] Figures shownFigures(int row) const;
    [[nodiscard]] int bufferIndex(int row) const;
    [[nodiscard]] QString term() const;
    /// The stock tab and this side's list have to read the database again.
    void markStale();
    void cursorToQuantity();

    const MovementSide& m_side;
    const MovementTable& m_table;
    Services m_services;
    RowSet& m_rows;
    std::unique_ptr<Ui::MovementPage> m_ui;
    GridBar* m_bar = nullptr;
    PeriodBoxes m_period;
    ChoiceList m_partners;
    /// Posted figures of rows as they were before an update that was rolled back, by grid row.
    std::vector<std::pair<int, Figures>> m_takenBack;
    /// Rows at the bottom of the grid that the buffer has left behind.
    int m_outOfStep = 0;
    /// A corrected row is not in the table: another program has deleted it, or it was never stored. Updates
    /// are refused until the next search.
    bool m_editLost = false;
};

} // namespace suisui
