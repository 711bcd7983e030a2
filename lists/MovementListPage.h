// Tabs 3 and 4: the movements of a period as a list. They start blank on purpose: the operator asks for a
// list.
#pragma once

#include <memory>

#include "frame/support/Check_Csv.h"
#include "frame/support/GridBar.h"
#include "frame/support/Page.h"
#include "lists/ListSide.h"

class QComboBox;

namespace Ui {
class MovementListPage;
}

namespace suisui {

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
    /// First sight, or the first after a movement: the blank list.
    void firstShow() override;
    void barCode_KeyPress(int& keyAscii) override;

    /// Both end in "（すべて）", which is chosen at first.
    void setPartners(const ChoiceList& partners);
    void setStaff(const ChoiceList& staff);
    [[nodiscard]] QComboBox* partnerChoice();
    [[nodiscard]] QComboBox* staffChoice();
    [[nodiscard]] QWidget* searchButton();

private:
    void nameControls();
    void plainHeadings();
    void resetTab();

    const ListSide& m_side;
    Services m_services;
    std::unique_ptr<Ui::MovementListPage> m_ui;
    PeriodBoxes m_period;
};

} // namespace suisui
