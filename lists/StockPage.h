// Tab 2: how much of each goods item is on hand.
#pragma once

#include <memory>
#include <optional>

#include "frame/support/Frame.h"
#include "frame/support/GridBar.h"
#include "frame/support/Page.h"
#include "lists/ListPrinting.h"

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
    /// First sight: the empty grid with its plain headings.
    void firstShow() override;
    /// txtZBarCode_KeyPress.
    void barCode_KeyPress(int& keyAscii) override;

    void setListPrinting(const ListPrinting& printing) { m_listPrinting.emplace(printing); }
    void cmdRptZList_Click();

private:
    void plainHeadings();
    void resetGrid();

    Services m_services;
    std::unique_ptr<Ui::StockPage> m_ui;
    std::optional<ListPrinting> m_listPrinting;
};

} // namespace suisui
