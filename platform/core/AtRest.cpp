#include "platform/core/AtRest.h"

#include <cstdlib>
#include <string_view>
#include <utility>

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QEvent>

#include <xcb/xcb.h>

namespace suisui {

namespace {

/// Rounds of the loop without an event that count as rest. A dispatcher may look at timers and at its other
/// sources in turns, so one round is not enough.
constexpr int roundsOfRest = 4;

constexpr std::string_view atRestName = "_SUISUITAG_AT_REST";
constexpr std::uint8_t sentBySomebody =
    0x80; ///< in the type of an event: it was sent, not made by the server

} // namespace

/// A connection of its own: an answer to a window that has just closed is then nobody's error.
class AtRest::Display
{
public:
    Display() : m_connection(xcb_connect(nullptr, nullptr)), m_atRest(atom()) {}
    ~Display() { xcb_disconnect(m_connection); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    [[nodiscard]] bool isQuestion(const xcb_client_message_event_t& event) const
    {
        return m_atRest != XCB_ATOM_NONE && event.type == m_atRest && event.format == 32;
    }

    void answer(xcb_window_t window, std::uint32_t number)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, m_atRest, XCB_ATOM_CARDINAL, 32, 1,
                            &number);
        xcb_flush(m_connection);
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection))
            std::free(event); // errors of windows that have closed
    }

private:
    xcb_atom_t atom()
    {
        const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(atRestName.size()),
                                            atRestName.data());
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        const xcb_atom_t found = reply != nullptr ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
        std::free(reply);
        return found;
    }

    xcb_connection_t* m_connection;
    xcb_atom_t m_atRest;
};

AtRest::AtRest(std::function<bool()> atWork) : m_atWork(std::move(atWork))
{
    qApp->installNativeEventFilter(this);
}

AtRest::~AtRest() = default;

bool AtRest::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~sentBySomebody) != XCB_CLIENT_MESSAGE)
        return false;
    if (!m_display)
        m_display = std::make_unique<Display>();
    const auto& asked = *reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (!m_display->isQuestion(asked))
        return false;
    m_window = asked.window;
    m_number = asked.data.data32[0];
    m_quietRounds = 0;
    if (!m_loop) {
        qApp->installEventFilter(this);
        m_loop = connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                         &AtRest::aboutToWait);
    }
    return true;
}

/// Timers tick for ever, as that of the cursor does; what they do shows in other events.
bool AtRest::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::Timer)
        m_quietRounds = 0;
    return false;
}

/// The loop is about to wait, as far as it knows. Who is at work ends that within the loop, so that it comes
/// here again.
void AtRest::aboutToWait()
{
    if (m_atWork()) {
        m_quietRounds = 0;
        return;
    }
    if (++m_quietRounds > roundsOfRest)
        answer();
    else
        QAbstractEventDispatcher::instance()->wakeUp();
}

void AtRest::answer()
{
    disconnect(m_loop);
    m_loop = {};
    qApp->removeEventFilter(this);
    m_display->answer(m_window, m_number);
}

} // namespace suisui
