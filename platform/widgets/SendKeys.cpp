#include "platform/widgets/SendKeys.h"

#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include "platform/core/RunTimeError.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui {

namespace {

struct KeyStroke
{
    int key;
    QString text;
    Qt::KeyboardModifiers modifiers;
};

struct NamedKey
{
    QLatin1StringView name;
    int key;
    char16_t text; ///< 0: none
};

constexpr NamedKey namedKeys[] = {
    {"ENTER"_L1, Qt::Key_Return, u'\r'},
    {"TAB"_L1, Qt::Key_Tab, u'\t'},
    {"ESC"_L1, Qt::Key_Escape, 0x1B},
    {"BACKSPACE"_L1, Qt::Key_Backspace, u'\b'},
    {"BS"_L1, Qt::Key_Backspace, u'\b'},
    {"BKSP"_L1, Qt::Key_Backspace, u'\b'},
    {"DELETE"_L1, Qt::Key_Delete, 0},
    {"DEL"_L1, Qt::Key_Delete, 0},
    {"INSERT"_L1, Qt::Key_Insert, 0},
    {"INS"_L1, Qt::Key_Insert, 0},
    {"HOME"_L1, Qt::Key_Home, 0},
    {"END"_L1, Qt::Key_End, 0},
    {"PGUP"_L1, Qt::Key_PageUp, 0},
    {"PGDN"_L1, Qt::Key_PageDown, 0},
    {"UP"_L1, Qt::Key_Up, 0},
    {"DOWN"_L1, Qt::Key_Down, 0},
    {"LEFT"_L1, Qt::Key_Left, 0},
    {"RIGHT"_L1, Qt::Key_Right, 0},
    {"BREAK"_L1, Qt::Key_Cancel, 0},
    {"CAPSLOCK"_L1, Qt::Key_CapsLock, 0},
    {"NUMLOCK"_L1, Qt::Key_NumLock, 0},
    {"SCROLLLOCK"_L1, Qt::Key_ScrollLock, 0},
    {"HELP"_L1, Qt::Key_Help, 0},
    {"PRTSC"_L1, Qt::Key_Print, 0},
};

constexpr int mostRepeats = 1000;
constexpr int deepestGroup = 64;

[[noreturn]] void meaningless(QStringView expression)
{
    throw RunTimeError(RunTimeError::InvalidCall, "keys " + expression.left(40).toString().toStdString());
}

/// Reads a whole key expression before any key of it is typed.
class Expression
{
public:
    explicit Expression(QStringView text) : m_text(text) {}

    std::vector<KeyStroke> read()
    {
        while (m_at < m_text.size())
            item(Qt::NoModifier, 0);
        return std::move(m_keys);
    }

private:
    void item(Qt::KeyboardModifiers held, int depth)
    {
        QChar c = m_text[m_at++];
        Qt::KeyboardModifiers here = Qt::NoModifier;
        while (modifierOf(c) != Qt::NoModifier) {
            const bool twice = (here & modifierOf(c)) != 0;
            here |= modifierOf(c);
            if (twice || m_at >= m_text.size())
                meaningless(m_text);
            c = m_text[m_at++];
        }
        held |= here;
        if (c == u'(') {
            while (m_at < m_text.size() && m_text[m_at] != u')' && depth < deepestGroup)
                item(held, depth + 1);
            if (m_at >= m_text.size() || m_text[m_at++] != u')')
                meaningless(m_text);
        } else if (c == u'{') {
            braces(held);
        } else if (c == u')' || c == u'}') {
            meaningless(m_text);
        } else if (c == u'~') {
            m_keys.push_back({Qt::Key_Return, u"\r"_s, held});
        } else {
            character(c, held, 1);
        }
    }

    void braces(Qt::KeyboardModifiers held)
    {
        // "{}}" is the closing brace itself.
        const qsizetype close = m_text.indexOf(u'}', m_at + 1);
        if (close < 0)
            meaningless(m_text);
        const QStringView inner = m_text.sliced(m_at, close - m_at);
        m_at = close + 1;
        QStringView name = inner;
        int count = 1;
        if (const qsizetype blank = inner.lastIndexOf(u' '); blank > 0) {
            bool isNumber = false;
            count = inner.sliced(blank + 1).toInt(&isNumber);
            if (!isNumber || count < 0 || count > mostRepeats)
                meaningless(m_text);
            name = inner.first(blank);
        }
        if (name.size() == 1) {
            character(name[0], held, count);
            return;
        }
        for (const NamedKey& named : namedKeys)
            if (name.compare(named.name, Qt::CaseInsensitive) == 0)
                return repeat({named.key, named.text == 0 ? QString() : QString(QChar(named.text)), held},
                              count);
        if (name.startsWith(u'F', Qt::CaseInsensitive)) {
            const bool digits = name.size() > 1 && name[1].isDigit();
            const int number = digits ? name.sliced(1).toInt() : 0;
            if (number >= 1 && number <= 16)
                return repeat({Qt::Key_F1 + number - 1, {}, held}, count);
        }
        meaningless(m_text);
    }

    void character(QChar c, Qt::KeyboardModifiers held, int count)
    {
        const bool control = (held & Qt::ControlModifier) != 0;
        const int key = c.toUpper().unicode();
        const QString text = control && c.isLetter() ? QString(QChar(key & 0x1F)) : QString(c);
        repeat({key, text, held}, count);
    }

    void repeat(const KeyStroke& stroke, int count)
    {
        m_keys.insert(m_keys.end(), static_cast<std::size_t>(count), stroke);
    }

    static Qt::KeyboardModifiers modifierOf(QChar c)
    {
        switch (c.unicode()) {
        case u'+':
            return Qt::ShiftModifier;
        case u'^':
            return Qt::ControlModifier;
        case u'%':
            return Qt::AltModifier;
        default:
            return Qt::NoModifier;
        }
    }

    QStringView m_text;
    qsizetype m_at = 0;
    std::vector<KeyStroke> m_keys;
};

/// Whoever would get a key of the keyboard at this moment. A box that has just come up takes its keys before
/// the screen has made it the active window.
QWidget* receiver()
{
    QWidget* focused = QApplication::focusWidget();
    QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && (focused == nullptr || (focused != modal && !modal->isAncestorOf(focused))))
        return modal->focusWidget() != nullptr ? modal->focusWidget() : modal;
    if (focused != nullptr)
        return focused;
    QWidget* active = QApplication::activeWindow();
    return active != nullptr && active->focusWidget() != nullptr ? active->focusWidget() : active;
}

void typeKey(const KeyStroke& stroke)
{
    const QPointer<QWidget> target = receiver();
    if (target == nullptr)
        return;
    QKeyEvent press(QEvent::KeyPress, stroke.key, stroke.modifiers, stroke.text);
    QCoreApplication::sendEvent(target, &press);
    if (target == nullptr)
        return;
    QKeyEvent release(QEvent::KeyRelease, stroke.key, stroke.modifiers, stroke.text);
    QCoreApplication::sendEvent(target, &release);
}

} // namespace

void SendKeys(const QString& expression)
{
    for (const KeyStroke& stroke : Expression(expression).read())
        QTimer::singleShot(0, qApp, [stroke] { typeKey(stroke); });
}

} // namespace suisui
