#include "tests/support/FormWalk.h"

#include <algorithm>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFrame>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

std::string nameOf(const QWidget* widget)
{
    return widget == nullptr
               ? "nothing"
               : widget->objectName().toStdString() + " (" + widget->metaObject()->className() + ")";
}

/// Parts of Qt's own controls: the list of a combo box, the buttons of a tab bar, scroll bars and headings.
bool isInside(const QWidget& widget, const QWidget& form)
{
    if (qobject_cast<const QScrollBar*>(&widget) != nullptr
        || qobject_cast<const QHeaderView*>(&widget) != nullptr)
        return true;
    for (const QWidget* above = widget.parentWidget(); above != nullptr && above != &form;
         above = above->parentWidget())
        if (above->isWindow() || qobject_cast<const QComboBox*>(above) != nullptr
            || qobject_cast<const QTabBar*>(above) != nullptr
            || qobject_cast<const QAbstractScrollArea*>(above) != nullptr)
            return true;
    return widget.isWindow();
}

template <typename Widget> std::vector<const Widget*> seen(const QWidget& form)
{
    std::vector<const Widget*> found;
    for (const Widget* widget : form.findChildren<Widget*>())
        if (widget->isVisibleTo(&form) && !isInside(*widget, form))
            found.push_back(widget);
    return found;
}

bool isWorked(const QWidget& widget)
{
    return widget.focusPolicy() != Qt::NoFocus || qobject_cast<const QAbstractButton*>(&widget) != nullptr
           || qobject_cast<const QProgressBar*>(&widget) != nullptr;
}

/// A combo box speaks its entry; what is chosen there is said by the label that belongs to it.
QString labelOf(const QAccessibleInterface& speech)
{
    for (const auto& [label, relation] : speech.relations(QAccessible::Label))
        return label->text(QAccessible::Name);
    return {};
}

QString spokenName(const QWidget& widget)
{
    auto* speech = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    if (speech == nullptr)
        return {};
    return qobject_cast<const QComboBox*>(&widget) != nullptr ? labelOf(*speech)
                                                              : speech->text(QAccessible::Name);
}

QString captionOf(const QWidget& widget)
{
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return button == nullptr ? QString() : button->text();
}

QRect placeIn(const QWidget& ancestor, const QWidget& widget)
{
    return {widget.mapTo(&ancestor, QPoint(0, 0)), widget.size()};
}

/// The child of \a ancestor that \a widget is or is in.
const QWidget& branch(const QWidget& ancestor, const QWidget& widget)
{
    const QWidget* at = &widget;
    while (at->parentWidget() != &ancestor)
        at = at->parentWidget();
    return *at;
}

/// Whether a reader's eye comes to \a after later than to \a before. Boxes are read one after another,
/// each as a whole.
bool isReadBefore(const QWidget& before, const QWidget& after)
{
    const QWidget* common = before.parentWidget();
    while (!common->isAncestorOf(&after))
        common = common->parentWidget();
    const QRect first = placeIn(*common, branch(*common, before));
    const QRect second = placeIn(*common, branch(*common, after));
    const bool sameRow = second.top() <= first.center().y() && first.top() <= second.center().y();
    return sameRow ? first.left() < second.left() : first.top() < second.top();
}

void expectRoom(const QWidget& widget, const QSize& needed, const QSize& given, const char* what)
{
    EXPECT_TRUE(needed.width() <= given.width() && needed.height() <= given.height())
        << nameOf(&widget) << ": " << what << " needs " << needed.width() << " x " << needed.height()
        << " and has " << given.width() << " x " << given.height();
}

void expectTextRoom(const QLabel& label)
{
    if (label.text().isEmpty())
        return;
    const QSize needed = label.wordWrap() ? QSize(0, label.heightForWidth(label.width())) : label.sizeHint();
    expectRoom(label, needed, label.size(), "the text");
}

void expectTextRoom(const QAbstractButton& button)
{
    expectRoom(button, button.minimumSizeHint(), button.size(), "the caption");
    const auto* push = qobject_cast<const QPushButton*>(&button);
    if (push == nullptr)
        return;
    QStyleOptionButton option;
    option.initFrom(push);
    option.text = push->text();
    const QRect inside = push->style()->subElementRect(QStyle::SE_PushButtonContents, &option, push);
    expectRoom(*push, push->fontMetrics().size(Qt::TextShowMnemonic, push->text()), inside.size(),
               "the caption");
}

void expectTextRoom(const QGroupBox& box)
{
    expectRoom(box, {box.fontMetrics().horizontalAdvance(box.title()), 0}, box.size(), "the title");
}

void expectTextRoom(const QLineEdit& field)
{
    constexpr int cursor = 2;
    QStyleOptionFrame option;
    option.initFrom(&field);
    option.lineWidth = field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &field);
    const QRect inside = field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field);
    const int longest = field.fontMetrics().horizontalAdvance(field.displayText());
    expectRoom(field, {longest + cursor, field.fontMetrics().height()}, inside.size(), "the text");
}

void expectTextRoom(const QComboBox& choice)
{
    expectRoom(choice, {0, choice.minimumSizeHint().height()}, choice.size(), "the choice");
}

void expectTextRoom(const QTabBar& bar)
{
    for (const auto* arrow : bar.findChildren<QToolButton*>())
        EXPECT_FALSE(arrow->isVisibleTo(&bar)) << nameOf(&bar) << ": the tabs do not fit beside one another";
    for (int tab = 0; tab < bar.count(); ++tab)
        EXPECT_LT(bar.fontMetrics().horizontalAdvance(bar.tabText(tab)), bar.tabRect(tab).width())
            << nameOf(&bar) << ": tab " << tab;
}

void expectTextRoom(const QTableView& grid)
{
    const QHeaderView& headings = *grid.horizontalHeader();
    for (int column = 0; column < headings.count(); ++column) {
        if (headings.isSectionHidden(column))
            continue;
        EXPECT_LE(headings.sectionSizeHint(column), headings.sectionSize(column))
            << nameOf(&grid) << ": heading "
            << grid.model()->headerData(column, Qt::Horizontal).toString().toStdString();
    }
}

template <typename Widget> void expectTextRoomOfAll(const QWidget& form)
{
    for (const Widget* widget : seen<Widget>(form))
        expectTextRoom(*widget);
}

} // namespace

void expectNames(const QWidget& form)
{
    static const QRegularExpression japanese(u"[\\p{Hiragana}\\p{Katakana}\\p{Han}]"_s,
                                             QRegularExpression::UseUnicodePropertiesOption);
    std::map<std::pair<QString, QString>, const QWidget*> named;
    for (const QWidget* widget : seen<QWidget>(form)) {
        if (!isWorked(*widget))
            continue;
        const QString name = spokenName(*widget).trimmed();
        const bool plainCaption = name == u"OK"_s && captionOf(*widget) == name;
        EXPECT_TRUE(plainCaption || name.contains(japanese))
            << nameOf(widget) << " is called \"" << name.toStdString() << '"';
        const auto [other, isNew] = named.insert({{name, widget->toolTip()}, widget});
        EXPECT_TRUE(isNew) << nameOf(widget) << " and " << nameOf(other->second) << " are both called \""
                           << name.toStdString() << "\" and have the same hint";
    }
}

void expectOwnLetters(const QWidget& form)
{
    std::map<QKeySequence, const QWidget*> taken;
    const auto take = [&](const QString& caption, const QWidget* widget) {
        const QKeySequence letter = QKeySequence::mnemonic(caption);
        if (letter.isEmpty())
            return;
        const auto [other, isNew] = taken.insert({letter, widget});
        EXPECT_TRUE(isNew) << nameOf(widget) << " and " << nameOf(other->second) << " both answer to "
                           << letter.toString().toStdString();
    };
    for (const auto* button : seen<QAbstractButton>(form))
        take(button->text(), button);
    for (const auto* label : seen<QLabel>(form))
        if (label->buddy() != nullptr)
            take(label->text(), label);
    for (const auto* box : seen<QGroupBox>(form))
        take(box->title(), box);
    for (const auto* bar : seen<QTabBar>(form))
        for (int tab = 0; tab < bar->count(); ++tab)
            take(bar->tabText(tab), bar);
}

std::vector<QWidget*> tabStops(const QWidget& form)
{
    std::vector<QWidget*> stops;
    for (const QWidget* widget : seen<QWidget>(form))
        if (widget->isEnabledTo(&form) && (widget->focusPolicy() & Qt::TabFocus) != 0
            && widget->focusProxy() == nullptr)
            stops.push_back(const_cast<QWidget*>(widget));
    return stops;
}

std::vector<QWidget*> tabRound(QWidget& form)
{
    const std::size_t tooMany = 3 * tabStops(form).size() + 3;
    std::vector<QWidget*> round;
    QWidget* at = form.focusWidget();
    while (at != nullptr && round.size() < tooMany && (round.empty() || at != round.front())) {
        round.push_back(at);
        // In a grid Tab goes from cell to cell first.
        if (auto* grid = qobject_cast<QTableView*>(at); grid != nullptr && grid->model()->rowCount() > 0) {
            int last = grid->model()->columnCount() - 1;
            while (grid->isColumnHidden(last))
                --last;
            grid->setCurrentIndex(grid->model()->index(grid->model()->rowCount() - 1, last));
        }
        QTest::keyClick(at, Qt::Key_Tab);
        at = form.focusWidget();
    }
    return round;
}

void expectEachStopOnce(QWidget& form)
{
    const std::vector<QWidget*> round = tabRound(form);
    for (const QWidget* stop : tabStops(form))
        EXPECT_EQ(std::count(round.begin(), round.end(), stop), 1) << nameOf(stop);
    EXPECT_EQ(round.size(), tabStops(form).size());
}

void expectTabOrder(QWidget& form)
{
    expectEachStopOnce(form);
    std::vector<QWidget*> round = tabRound(form);
    ASSERT_FALSE(round.empty());
    // Wherever the walk began: the place where it comes back to the top is the one that may be out of order.
    const auto top = std::min_element(round.begin(), round.end(), [](const QWidget* a, const QWidget* b) {
        return a != b && isReadBefore(*a, *b) && !isReadBefore(*b, *a);
    });
    std::rotate(round.begin(), top, round.end());
    for (std::size_t i = 1; i < round.size(); ++i)
        EXPECT_TRUE(isReadBefore(*round[i - 1], *round[i]))
            << "Tab goes from " << nameOf(round[i - 1]) << " back to " << nameOf(round[i]);
}

void expectNothingCut(const QWidget& form)
{
    for (const QWidget* widget : seen<QWidget>(form)) {
        const QRect room = widget->parentWidget()->rect();
        const QRect place = widget->geometry();
        EXPECT_TRUE(room.contains(place))
            << nameOf(widget) << " at " << place.left() << ", " << place.top() << " of " << place.width()
            << " x " << place.height() << " is outside " << nameOf(widget->parentWidget()) << " of "
            << room.width() << " x " << room.height();
    }
    expectTextRoomOfAll<QLabel>(form);
    expectTextRoomOfAll<QAbstractButton>(form);
    expectTextRoomOfAll<QGroupBox>(form);
    expectTextRoomOfAll<QLineEdit>(form);
    expectTextRoomOfAll<QComboBox>(form);
    expectTextRoomOfAll<QTabBar>(form);
    expectTextRoomOfAll<QTableView>(form);
}

} // namespace suisui::test
