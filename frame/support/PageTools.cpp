#include "frame/support/PageTools.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

#include "platform/core/RunTimeError.h"
#include "platform/widgets/EnterKey.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

class EnterFilter final : public QObject
{
public:
    EnterFilter(QComboBox* combo, QWidget* next) : QObject(combo), m_next(next) {}

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        if (!isEnter(*static_cast<QKeyEvent*>(event)))
            return false;
        m_next->setFocus();
        return true;
    }

private:
    QWidget* m_next;
};

} // namespace

const QString allChoices = u"（すべて）"_s;

void fillCombo(QComboBox& combo, const ChoiceList& choices, bool withAll)
{
    combo.clear();
    for (const Choice& choice : choices)
        combo.addItem(choice.name);
    if (withAll)
        combo.addItem(allChoices);
    combo.setCurrentIndex(withAll ? combo.count() - 1 : 0);
}

const Choice& choiceAt(const ChoiceList& choices, int index)
{
    if (index < 0 || index >= static_cast<int>(choices.size()))
        throw RunTimeError(RunTimeError::SubscriptOutOfRange, "nothing is chosen");
    return choices[static_cast<std::size_t>(index)];
}

bool chooseCode(QComboBox& combo, const ChoiceList& choices, const QString& code)
{
    const std::string wanted = code.toStdString();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i].code == wanted) {
            combo.setCurrentIndex(static_cast<int>(i));
            return true;
        }
    }
    return false;
}

void enterMovesOn(QComboBox& combo, QWidget& next)
{
    combo.installEventFilter(new EnterFilter(&combo, &next));
}

QString asCaption(QString words)
{
    return words.replace(u'&', u"&&"_s);
}

void followRuler(QLineEdit& field, const QLabel& ruler)
{
    constexpr int figures = 13;
    constexpr int ownMargin = 4; // of a line edit: frame and the gap after it
    ruler.ensurePolished();      // its form gives it a font of its own
    const QFontMetrics marks = ruler.fontMetrics();
    const int step = marks.horizontalAdvance(u"  １"_s);
    const int firstMiddle = marks.horizontalAdvance(u" "_s) + marks.horizontalAdvance(u"１"_s) / 2;
    const int character = field.fontMetrics().horizontalAdvance(u'0');
    QFont close = field.font();
    QFont spaced = close;
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, step - character);
    field.setTextMargins(firstMiddle - character / 2 - ownMargin, 0, 0, 0);
    field.setFont(spaced);
    QObject::connect(&field, &QLineEdit::textChanged, &field, [&field, close, spaced](const QString& text) {
        field.setFont(text.size() <= figures ? spaced : close);
    });
}

void letterNames(QWidget& form, QChar letter)
{
    for (QWidget* control : form.findChildren<QWidget*>()) {
        QString name = control->objectName();
        const qsizetype place = name.indexOf(u'X');
        if (place <= 0 || name.startsWith("qt_"_L1))
            continue;
        name[place] = letter;
        control->setObjectName(name);
    }
}

} // namespace suisui
