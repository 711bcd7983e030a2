#include "platform/widgets/SendKeys.h"

#include <optional>
#include <vector>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>
#include <QWidget>

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
constexpr std::size_t mostKeys = 10000; ///< counts multiply; no memory is to be filled with keys

/// Reads a whole key expression before any key of it is typed.
class Expression
{
public:
    explicit Expression(QStringView text) : m_text(text) {}

    /// Nothing when it has no meaning.
    std::optional<std::vector<KeyStroke>> read()
    {
        while (m_at < m_text.size())
            if (!item(Qt::NoModifier, 0))
                return std::nullopt;
        return std::move(m_keys);
    }

private:
    // Each reads one piece of the expression; false when it has no meaning.
    [[nodiscard]] bool item(Qt::KeyboardModifiers held, int depth)
    {
        QChar c = m_text[m_at++];
        Qt::KeyboardModifiers here = Qt::NoModifier;
        while (modifierOf(c) != Qt::NoModifier) {
            const bool twice = (here & modifierOf(c)) != 0;
            here |= modifierOf(c);
            if (twice || m_at >= m_text.size())
                return false;
            c = m_text[m_at++];
        }
        held |= here;
        switch (c.unicode()) {
        case u'(':
            return group(held, depth);
        case u'{':
            return braces(held);
        case u')':
        case u'}':
            return false;
        case u'~':
            return repeat({Qt::Key_Return, u"\r"_s, held}, 1);
        default:
            return character(c, held, 1);
        }
    }

    [[nodiscard]] bool group(Qt::KeyboardModifiers held, int depth)
    {
        while (m_at < m_text.size() && m_text[m_at] != u')')
            if (depth >= deepestGroup || !item(held, depth + 1))
                return false;
        return m_at++ < m_text.size();
    }

    [[nodiscard]] bool braces(Qt::KeyboardModifiers held)
    {
        // "{}}" is the closing brace itself.
        const qsizetype close = m_text.indexOf(u'}', m_at + 1);
        if (close < 0)
            return false;
        QStringView name = m_text.sliced(m_at, close - m_at);
        m_at = close + 1;
        int count = 1;
        if (const qsizetype blank = name.lastIndexOf(u' '); blank > 0) {
            bool isNumber = false;
            count = name.sliced(blank + 1).toInt(&isNumber);
            if (!isNumber || count < 0 || count > mostRepeats)
                return false;
            name = name.first(blank);
        }
        return name.size() == 1 ? character(name[0], held, count) : namedKey(name, held, count);
    }

    [[nodiscard]] bool namedKey(QStringView name, Qt::KeyboardModifiers held, int count)
    {
        for (const NamedKey& named : namedKeys)
            if (name.compare(named.name, Qt::CaseInsensitive) == 0)
                return repeat({named.key, named.text == 0 ? QString() : QString(QChar(named.text)), held},
                              count);
        if (name.size() < 2 || !name.startsWith(u'F', Qt::CaseInsensitive) || !name[1].isDigit())
            return false;
        const int number = name.sliced(1).toInt();
        return number >= 1 && number <= 16 && repeat({Qt::Key_F1 + number - 1, {}, held}, count);
    }

    [[nodiscard]] bool character(QChar c, Qt::KeyboardModifiers held, int count)
    {
        const bool control = (held & Qt::ControlModifier) != 0;
        const int key = c.toUpper().unicode();
        const QString text = control && c.isLetter() ? QString(QChar(key & 0x1F)) : QString(c);
        return repeat({key, text, held}, count);
    }

    [[nodiscard]] bool repeat(const KeyStroke& stroke, int count)
    {
        m_keys.insert(m_keys.end(), static_cast<std::size_t>(count), stroke);
        return m_keys.size() <= mostKeys;
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
    const auto keys = Expression(expression).read();
    if (!keys)
        return;
    for (const KeyStroke& stroke : *keys)
        QTimer::singleShot(0, qApp, [stroke] { typeKey(stroke); });
}

} // namespace suisui
