#include "lists/StockPage.h"

#include <QFocusEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "frame/support/Busy.h"
#include "frame/support/Check_Csv.h"
#include "frame/support/KeyField.h"
#include "frame/support/PageTools.h"
#include "platform/widgets/ReDrawOff.h"
#include "platform/widgets/KeyCodes.h"
#include "platform/widgets/EnterButton.h"
#include "store/AppDB.h"
#include "store/AppIni.h"
#include "ui_StockPage.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int rowsForASort = 2;

// At these pixel sizes two half-width characters of the screen font are as wide as a full-width one.
constexpr int tickedFontSize = 16;
constexpr int plainFontSize = 14;

constexpr const char* nothingHere = "－";

bool isWords(int col)
{
    return col == StockCells::code || col == StockCells::name;
}

bool isEmptyColumn(int col)
{
    return col == StockCells::discount || col == StockCells::amount;
}

} // namespace

StockPage::StockPage(const Services& services, QWidget* parent)
    : Page(parent), m_services(services), m_ui(std::make_unique<Ui::StockPage>()),
      m_rows((m_ui->setupUi(this), *m_ui->Sprd_Zai), services.ini)
{
    m_bar = new GridBar(
        *grid(),
        [this](int row) {
            const bool goods = !grid()->text(StockCells::code, row).empty();
            return detailView() && goods ? goodsRowWithBlock : QColor(Qt::white);
        },
        BarWithNoFocus::Grey);
    followRuler(*m_ui->txtZBarCode, *m_ui->lblZBarCode);
    wire();
}

StockPage::~StockPage() = default;

void StockPage::wire()
{
    connect(m_ui->cmdRptZList, &QPushButton::clicked, this, &StockPage::cmdRptZList_Click);
    m_ui->txtZBarCode->setKeyPressHandler([this](int& key) { barCode_KeyPress(key); });
    connect(m_ui->cmdZKensaku, &QPushButton::clicked, this, [this] {
        int key = KeyCode::enter;
        barCode_KeyPress(key);
    });
    connect(m_ui->chkStock_Low, &QCheckBox::toggled, this, [this](bool ticked) {
        if (ticked) {
            m_ui->chkStock_Zero->setChecked(true); // goods that have run out are below any minimum
            check_LostFocus(*m_ui->chkStock_Zero);
        }
        m_ui->cmdZKensaku->setFocus();
    });
    connect(m_ui->chkStock_Zero, &QCheckBox::toggled, this, [this] { m_ui->cmdZKensaku->setFocus(); });
    for (QRadioButton* view : {m_ui->optZNormal, m_ui->optZDetail})
        connect(view, &QRadioButton::toggled, this, [this](bool on) {
            if (on)
                viewChosen();
        });
    connect(grid(), &vaSpread::HeadingClick, this, &StockPage::headingClick);
    connect(grid(), &vaSpread::LeaveCell, this, [this](int, int, int newCol, int newRow) {
        if (newCol > 0)
            m_rowPointer = newRow;
    });
    for (QCheckBox* box : {m_ui->chkStock_Low, m_ui->chkStock_Zero}) {
        box->installEventFilter(this);
        keepRoom(*box);
    }
}

/// Reserves the room that a ticked box needs for its larger font, so that nothing moves when it is ticked.
void StockPage::keepRoom(QCheckBox& box)
{
    const QFont plain = box.font();
    QFont ticked = plain;
    ticked.setPixelSize(tickedFontSize);
    box.setFont(ticked);
    box.ensurePolished();
    box.setMinimumSize(box.sizeHint());
    box.setFont(plain);
}

QLineEdit* StockPage::barCodeField()
{
    return m_ui->txtZBarCode;
}

vaSpread* StockPage::grid()
{
    return m_ui->Sprd_Zai;
}

QCheckBox* StockPage::lowBox()
{
    return m_ui->chkStock_Low;
}

QCheckBox* StockPage::zeroBox()
{
    return m_ui->chkStock_Zero;
}

bool StockPage::detailView() const
{
    return m_ui->optZDetail->isChecked();
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
    int key = KeyCode::enter;
    barCode_KeyPress(key);
    m_ui->txtZBarCode->setText(kept);
}

void StockPage::barCode_KeyPress(int& keyAscii)
{
    if (m_keyBusy) {
        keyAscii = 0;
        return;
    }
    SearchKeyCheck(keyAscii);
    limitLength(*m_ui->txtZBarCode, goodsCodeLength, true, keyAscii);
    if (keyAscii != KeyCode::enter)
        return;
    const QScopedValueRollback<bool> keyBusy(m_keyBusy, true);
    Busy busy(m_services.frame);
    const QString text = m_ui->txtZBarCode->text();
    QWidget* next = nullptr;
    if (text.isEmpty()) {
        resetGrid();
        m_services.frame.setTabLoaded(Tab::Stock, true);
    } else {
        next = search(text);
    }
    busy.end();
    if (next != nullptr)
        next->setFocus();
}

// ---- check boxes

void StockPage::check_LostFocus(QCheckBox& box)
{
    const bool ticked = box.isChecked();
    QPalette colors = box.parentWidget()->palette();
    if (ticked) {
        colors.setColor(QPalette::Window, QColor(255, 255, 0));
        colors.setColor(QPalette::Button, QColor(255, 255, 0));
        colors.setColor(QPalette::WindowText, QColor(255, 0, 0));
    }
    box.setPalette(colors);
    box.setAutoFillBackground(ticked);
    QFont font = box.font();
    font.setPixelSize(ticked ? tickedFontSize : plainFontSize);
    box.setFont(font);
}

bool StockPage::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason)
        check_LostFocus(*static_cast<QCheckBox*>(object));
    return Page::eventFilter(object, event);
}

// ---- the two views

/// optZNormal_Click, optZDetail_Click: the same rows in the other view.
void StockPage::viewChosen()
{
    ZaikoViewRec& goods = m_services.db.ZaikoViewTbl();
    const int count = goods.Count();
    if (count == 0)
        return;
    Busy busy(m_services.frame);
    if (detailView() && !agreesToShow(count)) {
        busy.end();
        m_ui->optZDetail->repaint();
        m_ui->optZNormal->setChecked(true);
        return;
    }
    goods.setKeepRows(false);
    waitIfLong(count);
    stockListLoad();
    showFromTheTop();
    busy.end();
    grid()->setFocus();
}

// ---- headings

void StockPage::plainHeadings()
{
    for (int column = 1; column <= grid()->MaxCols(); ++column)
        grid()->SetText(column, 0, m_services.ini.StockHeading(column));
    m_rowPointer = 0;
}

void StockPage::writeHeadings(int sortedCol)
{
    if (detailView()) {
        plainHeadings();
        return;
    }
    for (int column = 1; column < StockCells::index; ++column) {
        if (isEmptyColumn(column)) {
            grid()->SetText(column, 0, std::string_view(nothingHere));
            continue;
        }
        const QString mark = column == sortedCol ? u"▲"_s : u"▽"_s;
        const QString gap = isWords(column) ? u" "_s : QString();
        grid()->SetText(column, 0, m_services.ini.StockHeading(column) + mark + gap);
    }
    m_rowPointer = 0;
}

void StockPage::headingClick(int col)
{
    vaSpread& sheet = *grid();
    if (sheet.MaxRows() < rowsForASort || detailView() || isEmptyColumn(col))
        return;
    const Busy busy(m_services.frame);
    // Until the cursor has moved since the headings were written, there is no code to return to. The bar then
    // stays with its goods, found by the hidden index, and the cursor goes there.
    const int sought = m_rowPointer > 0 ? StockCells::code : StockCells::index;
    const QString kept = sheet.qtext(sought, m_rowPointer > 0 ? m_rowPointer : sheet.ActiveRow());
    const bool ascending = isWords(col) || col == StockCells::unit;
    const vaSpread::SortKey keys[] = {{col, ascending}, {StockCells::code, true}, {StockCells::name, true}};
    const ReDrawOff noRedraw(sheet);
    const int activeCol = sheet.ActiveCol();
    const int activeRow = sheet.ActiveRow();
    sheet.Sort(keys);
    writeHeadings(col);
    for (int row = 1; !kept.isEmpty() && row <= sheet.MaxRows(); ++row) {
        if (sheet.qtext(sought, row) != kept)
            continue;
        m_bar->move(row == activeRow ? 0 : activeRow, row);
        sheet.SetActiveCell(activeCol, row);
        m_rowPointer = sought == StockCells::code ? row : 0;
        break;
    }
}

/// Empties the grid and writes plain headings.
void StockPage::resetGrid()
{
    plainHeadings();
    grid()->setMaxRows(0);
    grid()->horizontalScrollBar()->setValue(0); // no cursor could bring the codes back into view
    m_services.db.ZaikoViewTbl().Clear();
}

/// Only the detail view fills the columns of discount and amount.
void StockPage::cmdRptZList_Click()
{
    const auto head = [this] { return ReportHead{.texts = {}, .optionalTitles = detailView()}; };
    if (m_listPrinting)
        printList(reportOf(Tab::Stock), *grid(), head, *m_listPrinting, window());
}

} // namespace suisui
