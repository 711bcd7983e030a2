#include "lists/StockPage.h"

#include <array>

#include "frame/support/Check_Csv.h"
#include "frame/support/KeyField.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppIni.h"
#include "ui_StockPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr std::array columns{
    SpreadColumn{.heading = "コード", .width = 120},
    SpreadColumn{.heading = "名称", .width = 240},
    SpreadColumn{.heading = "在庫数", .type = CellType::Figure, .width = 120},
    SpreadColumn{.heading = "入荷単価", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "出荷単価", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "値引き", .type = CellType::Figure, .width = 90},
    SpreadColumn{.heading = "合計", .type = CellType::Figure, .width = 130},
    SpreadColumn{.heading = "単位", .width = 60},
    SpreadColumn{.heading = "最低在庫", .type = CellType::Figure, .width = 100},
    SpreadColumn{.heading = "", .hidden = true},
};

constexpr int codeLength = 13;
constexpr int enterKey = 13;

} // namespace

StockPage::StockPage(const Services& services, QWidget* parent)
    : Page(parent), m_services(services), m_ui(std::make_unique<Ui::StockPage>())
{
    m_ui->setupUi(this);
    m_ui->Sprd_Zai->setColumns(columns);
    new GridBar(*m_ui->Sprd_Zai);
    m_ui->txtZBarCode->setKeyPressHandler([this](int& key) { barCode_KeyPress(key); });
    connect(m_ui->cmdRptZList, &QPushButton::clicked, this, &StockPage::cmdRptZList_Click);
}

StockPage::~StockPage() = default;

QLineEdit* StockPage::barCodeField()
{
    return m_ui->txtZBarCode;
}

vaSpread* StockPage::grid()
{
    return m_ui->Sprd_Zai;
}

void StockPage::setCaptions(const AppIni& ini)
{
    m_ui->fraZWhere->setTitle(u" %1 状況の確認 "_s.arg(ini.Term(2)));
    m_ui->fraStockData->setTitle(u" %1数 "_s.arg(ini.Term(2)));
    plainHeadings();
}

void StockPage::setToday(const QString& text)
{
    m_ui->lblZToday->setText(text);
}

void StockPage::firstShow()
{
    const QString kept = m_ui->txtZBarCode->text();
    m_ui->txtZBarCode->clear();
    int key = enterKey;
    barCode_KeyPress(key);
    m_ui->txtZBarCode->setText(kept);
}

void StockPage::barCode_KeyPress(int& keyAscii)
{
    SearchKeyCheck(keyAscii);
    limitLength(*m_ui->txtZBarCode, codeLength, true, keyAscii);
    if (keyAscii == enterKey && m_ui->txtZBarCode->text().isEmpty())
        resetGrid();
}

void StockPage::plainHeadings()
{
    for (int column = 1; column <= grid()->MaxCols(); ++column)
        grid()->SetText(column, 0, m_services.ini.StockHeading(column));
}

void StockPage::resetGrid()
{
    plainHeadings();
    grid()->setMaxRows(0);
}

/// Discount and amount stand in the detail view only.
void StockPage::cmdRptZList_Click()
{
    const auto head = [this] {
        return ReportHead{.texts = {}, .optionalTitles = m_ui->optZDetail->isChecked()};
    };
    if (m_listPrinting)
        printList(reportOf(Tab::Stock), *grid(), head, *m_listPrinting, window());
}

} // namespace suisui
