#include "frame/support/TypedScan.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <QWindow>

#include "platform/widgets/EnterKey.h"

namespace suisui {

namespace {

struct Brackets
{
    char16_t open;
    char16_t close;
};
constexpr Brackets brackets[] = {{u'[', u']'}, {u'{', u'}'}, {u'#', u'#'}, {u'@', u'@'}};

bool opens(QChar character)
{
    for (const Brackets& pair : brackets)
        if (character == QChar(pair.open))
            return true;
    return false;
}

/// The character that a key types, a null one for the others.
QChar characterOf(const QKeyEvent& key)
{
    const QString text = key.text();
    const bool plain = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) == 0;
    return plain && text.size() == 1 && text[0].isPrint() ? text[0] : QChar();
}

bool isModifier(const QKeyEvent& key)
{
    switch (key.key()) {
    case Qt::Key_Shift:
    case Qt::Key_CapsLock:
    case Qt::Key_AltGr:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

} // namespace

TypedScan::TypedScan(QWidget& form, std::function<bool()> endsPlainCodes, Scanned scanned)
    : m_form(form), m_endsPlainCodes(std::move(endsPlainCodes)), m_scanned(std::move(scanned))
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(longestGapMs);
    // Behind long work the next key may be waiting already: it is to be looked at first.
    connect(&m_pause, &QTimer::timeout, this, [this] {
        const quint64 last = m_lastTime;
        QTimer::singleShot(0, this, [this, last] {
            if (m_lastTime == last)
                giveBack();
        });
    });
    qApp->installEventFilter(this);
}

TypedScan::~TypedScan() = default;

bool TypedScan::eventFilter(QObject* object, QEvent* event)
{
    if (m_givingBack || !object->isWindowType() || object != m_form.windowHandle())
        return false;
    switch (event->type()) {
    case QEvent::KeyPress:
        return press(*static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        if (m_held.empty())
            return false;
        hold(*static_cast<QKeyEvent*>(event));
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        giveBack();
        return false;
    default:
        return false;
    }
}

bool TypedScan::press(const QKeyEvent& key)
{
    if (isModifier(key)) {
        if (m_held.empty())
            return false;
        hold(key);
        return true;
    }
    const bool follows =
        !m_text.isEmpty() && key.timestamp() >= m_lastTime && key.timestamp() - m_lastTime <= longestGapMs;
    if (!follows)
        giveBack();
    return isEnter(key) ? pressEnter(follows) : pressCharacter(key);
}

/// An Enter that \a follows a burst makes it a scan.
bool TypedScan::pressEnter(bool follows)
{
    m_passedTime = 0;
    if (!follows || !isScan()) {
        giveBack();
        return false;
    }
    const QString value = m_text;
    m_held.clear();
    m_text.clear();
    m_pause.stop();
    if (QWidget* list = QApplication::activePopupWidget())
        list->close(); // an open choice would get the keys of whatever comes of the scan
    m_scanned(value);
    return true;
}

bool TypedScan::pressCharacter(const QKeyEvent& key)
{
    const QChar character = characterOf(key);
    // What goes on behind characters that the code field has got belongs to them, whatever the field is doing
    // with them meanwhile.
    const bool belongs = m_passedTime != 0 && key.timestamp() - m_passedTime <= longestGapMs;
    // Keys without a time are typed by the program itself.
    if (character.isNull() || key.timestamp() == 0 || m_text.size() >= mostCharacters
        || (m_text.isEmpty() && (belongs || !mayBegin(character)))) {
        giveBack();
        m_passedTime = character.isNull() || !(belongs || m_endsPlainCodes()) ? 0 : key.timestamp();
        return false;
    }
    hold(key);
    m_text += character;
    m_lastTime = key.timestamp();
    m_pause.start();
    return true;
}

bool TypedScan::mayBegin(QChar character) const
{
    return opens(character) || !m_endsPlainCodes();
}

bool TypedScan::isScan() const
{
    for (const Brackets& pair : brackets)
        if (m_text.size() > 1 && m_text.startsWith(QChar(pair.open)) && m_text.endsWith(QChar(pair.close)))
            return true;
    return m_text.size() >= fewestCharacters && !m_endsPlainCodes();
}

void TypedScan::hold(const QKeyEvent& key)
{
    m_held.emplace_back(key.clone());
}

/// Lets the window have the keys that are no scan.
void TypedScan::giveBack()
{
    m_pause.stop();
    m_text.clear();
    if (m_held.empty() || m_form.windowHandle() == nullptr)
        return;
    const std::vector<std::unique_ptr<QKeyEvent>> keys = std::move(m_held);
    m_held.clear();
    const QScopedValueRollback back(m_givingBack, true);
    for (const std::unique_ptr<QKeyEvent>& key : keys)
        QCoreApplication::sendEvent(m_form.windowHandle(), key.get());
}

} // namespace suisui
