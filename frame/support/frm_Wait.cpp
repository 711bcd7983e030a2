#include "frame/support/frm_Wait.h"

#include "platform/core/DoEvents.h"
#include "ui_frm_Wait.h"

namespace suisui {

namespace {

/// Jobs whose bar counts steps and not rows.
constexpr struct
{
    QStringView waitTag;
    int steps;
} fixedMaxima[] = {{u"履歴保存", 14}, {u"履歴読込", 11}};

constexpr qint64 paintEveryMs = 50;
constexpr int lookAtClockEvery = 64; // rows; even a look at the clock adds up over a hundred thousand

} // namespace

frm_Wait::frm_Wait() : m_ui(std::make_unique<Ui::frm_Wait>())
{
    m_ui->setupUi(this);
}

frm_Wait::~frm_Wait() = default;

void frm_Wait::load(const QString& waitTag, int maximum)
{
    m_waitTag = waitTag;
    int steps = maximum;
    for (const auto& fixed : fixedMaxima)
        if (fixed.waitTag == waitTag)
            steps = fixed.steps;
    m_value = 0;
    m_ui->PrgBar->setRange(0, steps);
    m_ui->PrgBar->setValue(0);
    m_sincePaint.start();
    open();
}

int frm_Wait::maximum() const
{
    return m_ui->PrgBar->maximum();
}

void frm_Wait::setProgress(int value)
{
    m_value = value;
    const bool fewSteps = maximum() < lookAtClockEvery;
    if (!fewSteps && value % lookAtClockEvery != 0 && value != maximum())
        return;
    if (!fewSteps && m_sincePaint.elapsed() < paintEveryMs && value != maximum())
        return;
    m_sincePaint.restart();
    m_ui->PrgBar->setValue(value);
    DoEvents();
}

void frm_Wait::tick()
{
    m_blue = !m_blue;
    QPalette palette = m_ui->lblWait->palette();
    palette.setColor(QPalette::WindowText, m_blue ? QColor(0, 0, 255) : QColor(Qt::black));
    m_ui->lblWait->setPalette(palette);
}

void frm_Wait::closed()
{
    m_waitTag.clear();
}

} // namespace suisui
