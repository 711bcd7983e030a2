// Draws the page as it will be printed into the picture of the sheet, after every change of a field.
#include <algorithm>

#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

#include "barcode/label/PagePicture.h"
#include "barcode/label/SheetPicture.h"
#include "barcode/label/frm_PriCheck.h"
#include "frame/support/ShowModal.h"
#include "store/AppIni.h"
#include "ui_frm_PriCheck.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int codesNamed = 3; ///< of those that do not fit, in the warning, in the warning

QString warningOf(const PagePicture& page)
{
    if (page.badNumber)
        return u"数量が 数値でない行があります。"_s;
    QString codes = page.codes.first(std::min<qsizetype>(page.codes.size(), codesNamed)).join(u"、"_s);
    if (page.codes.size() > codesNamed)
        codes += u" …"_s;
    switch (page.worst) {
    case BarFit::NotCarried:
        return u"バーコードにできない文字です。\n"_s + codes;
    case BarFit::TooWide:
        return u"バーコードが ラベルに収まりません。線太さ・線高を確認して下さい。\n"_s + codes;
    case BarFit::NoQuietZone:
        return u"バーコードの左右の余白が足りません。\n"_s + codes;
    case BarFit::Good:
        break;
    }
    return {};
}

} // namespace

void frm_PriCheck::wirePicture()
{
    m_refresh.setSingleShot(true);
    connect(&m_refresh, &QTimer::timeout, this, &frm_PriCheck::refreshPicture);
    connect(m_ui->cmdBack, &QToolButton::clicked, this, [this] {
        --m_shownPage;
        refreshPicture();
    });
    connect(m_ui->cmdNext, &QToolButton::clicked, this, [this] {
        ++m_shownPage;
        refreshPicture();
    });
    connect(m_ui->cmdLarge, &QToolButton::clicked, this, &frm_PriCheck::showLarge);
}

/// Several changes at once, as for a new sheet, draw the page once.
void frm_PriCheck::refreshLater()
{
    if (isVisible() && !m_printing)
        m_refresh.start(0);
}

/// The rows with the marks that the print will find.
LabelRows frm_PriCheck::trialRows(const LabelJob& wanted) const
{
    LabelRows rows = m_rows.trial();
    if (m_setup.ticked(LabelField::rowRange))
        for (std::int64_t row = wanted.startRow; row <= std::min(wanted.endRow, rows.count()); ++row)
            rows.setMark(row, true);
    return rows;
}

int frm_PriCheck::barPitch() const
{
    return m_setup.text(LabelField::barPitch).toInt();
}

void frm_PriCheck::refreshPicture()
{
    const LabelJob wanted = m_setup.job();
    const std::int32_t pages = std::max(m_setup.pageTotal(), 0);
    m_shownPage = std::clamp(m_shownPage, 1, std::max(pages, 1));
    m_ui->cmdBack->setEnabled(m_shownPage > 1);
    m_ui->cmdNext->setEnabled(m_shownPage < pages);
    m_ui->cmdLarge->setEnabled(pages > 0);
    m_ui->lblShown->setText(pages > 0 ? u"%1 / %2 ページ"_s.arg(m_shownPage).arg(pages) : u"0 ページ"_s);
    PagePicture page;
    if (pages > 0)
        page = drawPage(wanted, trialRows(wanted), m_around.ini, barPitch(), m_shownPage,
                        picture()->pageSize() * devicePixelRatioF());
    picture()->setPage(page.image, wanted.grid.start);
    m_ui->lblWarning->setText(warningOf(page));
}

/// The page at the size of the paper.
void frm_PriCheck::showLarge()
{
    constexpr int dotsPerInch = 110;
    const LabelJob wanted = m_setup.job();
    const QSize size(static_cast<int>(paperWidth.value() * dotsPerInch / millimetresPerInch),
                     static_cast<int>(paperHeight.value() * dotsPerInch / millimetresPerInch));
    const PagePicture page = drawPage(wanted, trialRows(wanted), m_around.ini, barPitch(), m_shownPage, size);
    QDialog large(this);
    large.setWindowTitle(m_ui->lblShown->text());
    auto* layout = new QVBoxLayout(&large);
    layout->setContentsMargins({});
    auto* area = new QScrollArea(&large);
    auto* paper = new QLabel(area);
    paper->setPixmap(QPixmap::fromImage(page.image));
    area->setWidget(paper);
    area->setAlignment(Qt::AlignCenter);
    layout->addWidget(area);
    large.resize(size.width() + 40, height());
    m_scan->stop(); // scans are meant for the dialog behind this window
    showModal(large);
    m_scan->start();
}

} // namespace suisui
