#include "frame/support/frm_Wait.h"

#include <algorithm>

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

constexpr qint64 paintEveryMs = 40;
constexpr int fewSteps = 64; // so few that each may be seen

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
    m_ui->PrgBar->setRange(0, std::max(steps, 1)); // a range of nothing would show as a bar without an end
    m_ui->PrgBar->setValue(0);
    paintLabel(false);
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
    const bool seen = maximum() < fewSteps || value == maximum() || m_sincePaint.hasExpired(paintEveryMs);
    if (!seen)
        return;
    m_sincePaint.restart();
    m_ui->PrgBar->setValue(value);
    DoEvents();
}

void frm_Wait::tick()
{
    paintLabel(!m_blue);
}

void frm_Wait::paintLabel(bool blue)
{
    m_blue = blue;
    QPalette palette = m_ui->lblWait->palette();
    palette.setColor(QPalette::WindowText, blue ? QColor(0, 0, 255) : QColor(Qt::black));
    m_ui->lblWait->setPalette(palette);
}

void frm_Wait::closed()
{
    m_waitTag.clear();
}

} // namespace suisui
