#include "history/HistoryDialog.h"

#include <algorithm>

#include "frame/support/FocusPaint.h"
#include "platform/widgets/SendKeys.h"

namespace suisui {

HistoryDialog::HistoryDialog(MsgBox& msgBox, DialogScan::ReadLine readLine, QWidget* parent)
    : QDialog(parent), m_msgBox(msgBox), m_readLine(std::move(readLine))
{
}

HistoryDialog::~HistoryDialog() = default;

void HistoryDialog::wire(QAbstractButton& ok, QAbstractButton& end, int intervalMs)
{
    m_focusPaint = std::make_unique<FocusPaint>(this, palette().color(QPalette::Button));
    connect(&ok, &QAbstractButton::clicked, this, [this] { CmdOK_Click(); });
    connect(&end, &QAbstractButton::clicked, this, [this] { CmdEnd_Click(); });
    m_scan = new DialogScan(*this, intervalMs, m_readLine, ok, end, &SendKeys);
}

void HistoryDialog::unload()
{
    stopTimer();
    done(0);
}

bool holdsForbidden(const QString& text)
{
    constexpr QStringView forbidden = u"\\/:,;*?\"<>|";
    return std::any_of(text.begin(), text.end(), [forbidden](QChar c) { return forbidden.contains(c); });
}

} // namespace suisui
