// Tabs 3 and 4: the movements of a period as a list, each with its amount, or summed by goods. They start
// empty on purpose: a list appears when the operator asks for it. Nothing is changed here; reports and slip
// are made of what the grid shows.
#pragma once

#include <memory>
#include <optional>

#include "frame/support/Check_Csv.h"
#include "frame/support/GridBar.h"
#include "frame/support/Page.h"
#include "lists/ListFilter.h"
#include "lists/ListPrinting.h"
#include "lists/ListSide.h"
#include "lists/ListSort.h"

class QComboBox;

namespace Ui {
class MovementListPage;
}

namespace suisui {

class SlipIni;

class MovementListPage final : public Page
{
    Q_OBJECT

public:
    MovementListPage(Side side, const Services& services, QWidget* parent = nullptr);
    ~MovementListPage() override;

    [[nodiscard]] QLineEdit* barCodeField() override;
    [[nodiscard]] vaSpread* grid() override;
    void setCaptions(const AppIni& ini) override;
    void setDefaultDates(const QString& from, const QString& to) override;
    /// Shown for the first time, or for the first time since a movement: the empty list.
    void firstShow() override;
    /// txtNLBarCode_KeyPress, txtSLBarCode_KeyPress: takes the goods to be listed.
    void barCode_KeyPress(int& keyAscii) override;
    /// cmdNLKensaku_Click, cmdSLKensaku_Click.
    void cmdKensaku_Click();

    /// Both combo boxes end in "（すべて）", which is chosen at first.
    void setPartners(const ChoiceList& partners);
    /// Shows the partner of a scanned code; false when the side does not offer one.
    bool choosePartner(const QString& code);
    void setStaff(const ChoiceList& staff);
    [[nodiscard]] QComboBox* partnerChoice();
    [[nodiscard]] QComboBox* staffChoice();
    [[nodiscard]] QWidget* searchButton();

    /// Where slips go: the settings that the slip program reads, and the folder where that program is and
    /// finds its file. Only for the side that prints slips.
    void setSlipPlace(SlipIni& ini, const QString& exeFolder);
    /// Hands the shown list to the slip program.
    void cmdPrintRptExe_Click();

    void setListPrinting(const ListPrinting& printing) { m_listPrinting.emplace(printing); }
    /// cmdRptNList_Click, cmdRptSList_Click.
    void cmdRptList_Click();

private:
    void nameControls();
    void wire();
    void resetTab();
    [[nodiscard]] bool takeCode(const QString& text);

    // MovementListSearch.cpp
    [[nodiscard]] ListFilter filter() const;
    /// NyuListLoad, SyuListLoad.
    void listLoad();
    void emptyGrid();
    /// NyuDetailFill, SyuDetailFill.
    void detailFill(int count);
    /// NyuSumFill, SyuSumFill.
    void sumFill(int count);

    // MovementListReport.cpp
    /// What the report's head shows: the conditions on the screen now, which may not be those of the search.
    [[nodiscard]] ReportHead reportHead() const;

    // MovementListSlip.cpp
    /// Remembers from the search whose list it is and who made it.
    void rememberSlip(const ListFilter& filter);
    void printSlip();
    [[nodiscard]] bool handOverSlip();
    void slipBox(const QString& text);

    void headingClick(int col);
    void sort(ListView view, int col);

    const ListSide& m_side;
    Services m_services;
    std::unique_ptr<Ui::MovementListPage> m_ui;
    PeriodBoxes m_period;
    GridBar* m_bar;
    ChoiceList m_partners;
    ChoiceList m_staff;
    std::string m_chosenCode;
    std::string m_slipPartner; ///< code; empty when the list is for all partners
    QString m_slipPerson;
    SlipIni* m_slipIni = nullptr;
    QString m_exeFolder;
    std::optional<ListPrinting> m_listPrinting;
    bool m_searching = false;
};

} // namespace suisui
