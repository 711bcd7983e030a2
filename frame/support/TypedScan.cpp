#include "frame/support/TypedScan.h"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <QWindow>

#include "platform/widgets/EnterKey.h"
#include "platform/widgets/ReaderPace.h"
#include "store/ScannedValue.h"

namespace suisui {

namespace {

bool opens(QChar character)
{
    for (const Enclosure& pair : enclosures())
        if (character == QChar(pair.first))
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
    m_pause.setTimerType(Qt::PreciseTimer);
    connect(&m_pause, &QTimer::timeout, this, &TypedScan::pauseOver);
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
        return release(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonPress:
    case QEvent::Wheel:
        giveBack();
        m_passedTime = 0;
        return false;
    default:
        return false;
    }
}

bool TypedScan::press(const QKeyEvent& key)
{
    if (isModifier(key)) {
        if (m_burst.keys.empty())
            return false;
        hold(key);
        return true;
    }
    if (follows(key)) {
        m_burst.longestGap = std::max<quint64>(m_burst.longestGap, key.timestamp() - m_burst.lastTime);
        m_burst.overlapped = m_burst.overlapped || m_burst.down > 0;
    } else {
        giveBack();
    }
    return isEnter(key) ? pressEnter() : pressCharacter(key);
}

bool TypedScan::release(const QKeyEvent& key)
{
    if (m_burst.keys.empty())
        return false;
    if (!isModifier(key) && !isEnter(key) && m_burst.down > 0)
        --m_burst.down;
    hold(key);
    return true;
}

bool TypedScan::follows(const QKeyEvent& key) const
{
    return !m_burst.text.isEmpty() && key.timestamp() >= m_burst.lastTime
           && key.timestamp() - m_burst.lastTime < slowReaderGapMs;
}

/// An Enter makes the burst before it a scan.
bool TypedScan::pressEnter()
{
    if (!isScan()) {
        giveBack();
        m_passedTime = 0;
        return false;
    }
    m_pause.stop();
    m_passedTime = 0;
    const QString value = std::exchange(m_burst, {}).text;
    if (QWidget* list = QApplication::activePopupWidget())
        list->close(); // an open combo box would get the keys of whatever comes of the scan
    m_scanned(value);
    return true;
}

bool TypedScan::pressCharacter(const QKeyEvent& key)
{
    const QChar character = characterOf(key);
    // Keys without a time are typed by the program itself.
    const bool typed = !character.isNull() && key.timestamp() != 0;
    const bool goesOn = !m_burst.text.isEmpty() && m_burst.text.size() < mostCharacters && mayBecomeScan();
    if (!typed || !(goesOn || (m_burst.text.isEmpty() && mayBegin(key, character)))) {
        giveBack();
        m_passedTime = typed ? key.timestamp() : 0;
        return false;
    }
    hold(key);
    m_burst.text += character;
    m_burst.lastTime = key.timestamp();
    ++m_burst.down;
    m_lookedAgain = false;
    m_paused.start();
    m_pause.start(m_burst.overlapped ? readerGapMs : slowReaderGapMs);
    return true;
}

/// No key has come for as long as a reader takes. After long work, and on a busy machine, the next key may
/// have come although the timer fires first, so the timer runs once more.
void TypedScan::pauseOver()
{
    constexpr int late = 10;
    constexpr int againMs = 20;
    if (!m_lookedAgain && m_paused.elapsed() > m_pause.interval() + late) {
        m_lookedAgain = true;
        m_pause.start(againMs);
        return;
    }
    const quint64 last = m_burst.lastTime;
    QTimer::singleShot(0, this, [this, last] {
        if (m_burst.lastTime == last)
            giveBack();
    });
}

/// What follows characters that the window has got belongs to them, even while it is still busy with them. So
/// does what a held key types; a reader's "00" may come as one key and its repeat, but not as the first of a
/// burst.
bool TypedScan::mayBegin(const QKeyEvent& key, QChar character) const
{
    const bool belongs =
        m_passedTime != 0 && key.timestamp() >= m_passedTime && key.timestamp() - m_passedTime < pauseMs;
    return !belongs && !key.isAutoRepeat() && (opens(character) || !m_endsPlainCodes());
}

/// As far as its pace goes.
bool TypedScan::mayBecomeScan() const
{
    return m_burst.longestGap < readerGapMs || !m_burst.overlapped;
}

bool TypedScan::isScan() const
{
    const QString& text = m_burst.text;
    if (!mayBecomeScan())
        return false;
    for (const Enclosure& pair : enclosures())
        if (text.size() > 1 && text.startsWith(QChar(pair.first)) && text.endsWith(QChar(pair.last)))
            return true;
    const bool fast = m_burst.longestGap < readerGapMs;
    return text.size() >= (fast ? fewestCharacters : fewestSlowCharacters) && !m_endsPlainCodes();
}

void TypedScan::hold(const QKeyEvent& key)
{
    m_burst.keys.emplace_back(key.clone());
}

/// Lets the window have the keys that are not a scan.
void TypedScan::giveBack()
{
    m_pause.stop();
    if (!m_burst.text.isEmpty())
        m_passedTime = m_burst.lastTime;
    const Burst burst = std::exchange(m_burst, {});
    if (m_form.windowHandle() == nullptr)
        return;
    const QScopedValueRollback back(m_givingBack, true);
    for (const std::unique_ptr<QKeyEvent>& key : burst.keys)
        QCoreApplication::sendEvent(m_form.windowHandle(), key.get());
}

} // namespace suisui
