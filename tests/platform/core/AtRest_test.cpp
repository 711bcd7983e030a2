// The question whether the program is at rest, asked as another program asks it: through the X server.
#include "platform/core/AtRest.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>

#include <xcb/xcb.h>

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QTimer>
#include <QWindow>

#include "tests/support/Eventually.h"

namespace suisui::test {

namespace {

constexpr std::uint8_t keyA = 38; // the same place on every keyboard

/// A window that counts the keys it gets.
class Window final : public QWindow
{
public:
    Window()
    {
        resize(100, 60);
        show();
        EXPECT_TRUE(eventually([this] { return isExposed(); }));
    }
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent*) override { ++keys; }
};

/// Another program on the same display.
class Asker
{
public:
    Asker() : m_connection(xcb_connect(nullptr, nullptr))
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(m_connection, cookie, nullptr);
        m_atom = reply->atom;
        std::free(reply);
    }
    ~Asker() { xcb_disconnect(m_connection); }
    Asker(const Asker&) = delete;
    Asker& operator=(const Asker&) = delete;

    void ask(const QWindow& window, std::uint32_t number)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = static_cast<xcb_window_t>(window.winId());
        event.type = m_atom;
        event.data.data32[0] = number;
        send(event);
    }
    void press(const QWindow& window)
    {
        xcb_key_press_event_t event{};
        event.response_type = XCB_KEY_PRESS;
        event.detail = keyA;
        event.event = static_cast<xcb_window_t>(window.winId());
        event.same_screen = 1;
        send(event);
    }
    /// The last answer at \a window; 0 when there is none.
    [[nodiscard]] std::uint32_t answer(const QWindow& window)
    {
        const auto cookie = xcb_get_property(m_connection, 0, static_cast<xcb_window_t>(window.winId()),
                                             m_atom, XCB_ATOM_CARDINAL, 0, 1);
        xcb_get_property_reply_t* reply = xcb_get_property_reply(m_connection, cookie, nullptr);
        std::uint32_t number = 0;
        if (reply != nullptr && xcb_get_property_value_length(reply) == int{sizeof(number)})
            std::memcpy(&number, xcb_get_property_value(reply), sizeof(number));
        std::free(reply);
        return number;
    }

private:
    template <typename Event> void send(const Event& event)
    {
        std::array<char, 32> bytes{}; // the server reads as many, whatever the kind of the event
        static_assert(sizeof(event) <= bytes.size());
        std::memcpy(bytes.data(), &event, sizeof(event));
        xcb_send_event(m_connection, 0, windowOf(event), 0, bytes.data());
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }
    static xcb_window_t windowOf(const xcb_client_message_event_t& event) { return event.window; }
    static xcb_window_t windowOf(const xcb_key_press_event_t& event) { return event.event; }

    static constexpr const char* name = "_SUISUITAG_AT_REST";
    xcb_connection_t* m_connection;
    xcb_atom_t m_atom = XCB_ATOM_NONE;
};

class AtRestTest : public ::testing::Test
{
protected:
    bool atWork = false;
    AtRest atRest{[this] { return atWork; }};
    Window window;
    Asker asker;
};

} // namespace

TEST_F(AtRestTest, theAnswerIsTheNumberOfTheQuestion)
{
    EXPECT_EQ(asker.answer(window), 0u);
    for (const std::uint32_t number : {7u, 8u, 0xffffffffu}) {
        asker.ask(window, number);
        EXPECT_TRUE(eventually([&] { return asker.answer(window) == number; }));
    }
}

TEST_F(AtRestTest, itComesAfterTheKeysThatWereSentBefore)
{
    for (std::uint32_t turn = 1; turn <= 20; ++turn) {
        for (int key = 0; key < 5; ++key)
            asker.press(window);
        asker.ask(window, turn);
        ASSERT_TRUE(eventually([&] { return asker.answer(window) == turn; }));
        EXPECT_EQ(window.keys, static_cast<int>(turn) * 5);
    }
}

TEST_F(AtRestTest, workThatBegetsWork_isDoneFirst)
{
    int left = 200;
    const std::function<void()> work = [&] {
        if (--left > 0)
            QMetaObject::invokeMethod(&window, work, Qt::QueuedConnection);
    };
    QMetaObject::invokeMethod(&window, work, Qt::QueuedConnection);
    asker.ask(window, 1);
    ASSERT_TRUE(eventually([&] { return asker.answer(window) == 1; }));
    EXPECT_EQ(left, 0);
}

TEST_F(AtRestTest, whoIsAtWorkIsNotAtRest_untilItIsDone)
{
    atWork = true;
    asker.ask(window, 1);
    int ticks = 0;
    QTimer work;
    QObject::connect(&work, &QTimer::timeout, [&] { atWork = ++ticks < 50; });
    work.start(1);
    ASSERT_TRUE(eventually([&] { return asker.answer(window) == 1; }));
    EXPECT_GE(ticks, 50);
}

TEST_F(AtRestTest, aDialogsOwnLoopAnswersToo)
{
    QEventLoop dialog;
    QTimer look;
    bool answered = false;
    int looks = 0;
    QObject::connect(&look, &QTimer::timeout, [&] {
        answered = asker.answer(window) == 1;
        if (answered || ++looks == 5000)
            dialog.quit();
    });
    look.start(5);
    asker.ask(window, 1);
    dialog.exec();
    EXPECT_TRUE(answered);
}

TEST_F(AtRestTest, aWindowThatClosesUnderTheQuestion_doesNoHarm)
{
    auto box = std::make_unique<Window>();
    atWork = true;
    asker.ask(*box, 1);
    asker.press(*box);
    // The key goes to the window with the focus, whichever that is by now; it came after the question.
    ASSERT_TRUE(eventually([&] { return box->keys + window.keys == 1; }));
    box.reset();
    atWork = false;
    asker.ask(window, 2);
    EXPECT_TRUE(eventually([&] { return asker.answer(window) == 2; }));
}

} // namespace suisui::test
