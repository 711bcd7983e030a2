#include "frame/support/ChoiceBox.h"

#include <algorithm>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QScrollBar>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

constexpr int longestName = 20;     // full-width characters
constexpr int leastCharacters = 12; // half-width ones; the window of a small screen has no room for more
constexpr int textGap = 2;          // that the style leaves around the text

} // namespace

ChoiceBox::ChoiceBox(QWidget* parent) : QComboBox(parent)
{
    // One long name must not widen the whole window.
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(leastCharacters);
}

QSize ChoiceBox::sizeHint() const
{
    const QFontMetrics text = fontMetrics();
    const QSize least = QComboBox::minimumSizeHint();
    const int more =
        text.horizontalAdvance(QString(longestName, u'名')) - text.horizontalAdvance(u'X') * leastCharacters;
    return {least.width() + std::max(more, 0), least.height()};
}

QString ChoiceBox::shownText() const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    return fontMetrics().elidedText(currentText(), Qt::ElideRight, room.width() - textGap);
}

/// The open list has room for its names beside the scroll bar, as far as the screen goes.
void ChoiceBox::showPopup()
{
    QAbstractItemView& list = *view();
    const bool scrolls = count() > maxVisibleItems();
    list.setMinimumWidth(list.sizeHintForColumn(0) + 2 * list.frameWidth()
                         + (scrolls ? list.verticalScrollBar()->sizeHint().width() : 0));
    QComboBox::showPopup();
}

bool ChoiceBox::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || shownText() == currentText())
        return QComboBox::event(event);
    const QString hint = toolTip().isEmpty() ? currentText() : currentText() + u'\n' + toolTip();
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       Qt::mightBeRichText(hint) ? Qt::convertFromPlainText(hint) : hint, this);
    return true;
}

void ChoiceBox::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    option.currentText = shownText();
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

} // namespace suisui
