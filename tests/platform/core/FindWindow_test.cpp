// Looking for another program's window by its title, on a screen with a window manager.
#include "platform/core/FindWindow.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include <xcb/xcb.h>

#include <gtest/gtest.h>

#include "tests/support/Eventually.h"

using namespace Qt::Literals::StringLiterals;

namespace suisui::test {

namespace {

const auto masterTitle = u" 基本情報 登録  　【 マスタ管理 】　　Tarnvik Works Co.,Ltd."_s;

constexpr std::uint32_t iconicState = 3;

/// A program with windows on the screen, seen from the side of the X server.
class Client
{
public:
    Client() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection) != 0)
            throw std::runtime_error("no screen");
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    }
    ~Client() { xcb_disconnect(m_connection); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    [[nodiscard]] xcb_window_t create(xcb_window_t parent = XCB_NONE, bool managed = true)
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        const std::uint32_t past = managed ? 0 : 1;
        xcb_create_window(
            m_connection, XCB_COPY_FROM_PARENT, window, parent != XCB_NONE ? parent : m_screen->root, 0, 0,
            60, 40, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual, XCB_CW_OVERRIDE_REDIRECT, &past);
        m_windows.push_back(window);
        return window;
    }
    void setNetName(xcb_window_t window, const QByteArray& name)
    {
        setText(window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), name);
    }
    void setOldName(xcb_window_t window, const QByteArray& name)
    {
        setText(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, name);
    }
    void map(xcb_window_t window) { xcb_map_window(m_connection, window); }
    void unmap(xcb_window_t window) { xcb_unmap_window(m_connection, window); }
    void destroy(xcb_window_t window) { xcb_destroy_window(m_connection, window); }
    void destroyAll()
    {
        for (const xcb_window_t window : std::exchange(m_windows, {}))
            destroy(window);
    }
    void minimise(xcb_window_t window) { tellManager(window, "WM_CHANGE_STATE", iconicState); }
    void moveToDesktop(xcb_window_t window, std::uint32_t desktop)
    {
        tellManager(window, "_NET_WM_DESKTOP", desktop);
    }

    [[nodiscard]] bool onScreen(xcb_window_t window)
    {
        const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> reply(
            xcb_get_window_attributes_reply(m_connection, xcb_get_window_attributes(m_connection, window),
                                            nullptr),
            &std::free);
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    /// Until the server has done all that was asked of it.
    void settle()
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

private:
    xcb_atom_t atom(const char* name)
    {
        const auto length = static_cast<std::uint16_t>(std::char_traits<char>::length(name));
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(m_connection, xcb_intern_atom(m_connection, 0, length, name), nullptr),
            &std::free);
        return reply->atom;
    }
    void setText(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, const QByteArray& text)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                            static_cast<std::uint32_t>(text.size()), text.constData());
    }
    void tellManager(xcb_window_t window, const char* what, std::uint32_t value)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = atom(what);
        event.data.data32[0] = value;
        event.data.data32[1] = 1; // an ordinary program asks
        xcb_send_event(m_connection, 0, m_screen->root,
                       XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&event));
        settle();
    }

    xcb_connection_t* m_connection;
    xcb_screen_t* m_screen = nullptr;
    std::vector<xcb_window_t> m_windows;
};

class FindWindowTest : public ::testing::Test
{
protected:
    // One program for all tests: the ids of a program that has ended are given out again, and the window
    // manager may still be busy with the windows that had them.
    static void SetUpTestSuite() { program = std::make_unique<Client>(); }
    static void TearDownTestSuite() { program.reset(); }

    ~FindWindowTest() override
    {
        client.destroyAll();
        client.settle();
    }

    /// A window with \a title that can be seen.
    xcb_window_t show(const QString& title)
    {
        const xcb_window_t window = client.create();
        client.setNetName(window, title.toUtf8());
        EXPECT_TRUE(eventually([&] {
            client.map(window); // again: a window manager that is just coming up may miss it
            return client.onScreen(window);
        }));
        return window;
    }

    inline static std::unique_ptr<Client> program;
    Client& client = *program;
};

} // namespace

TEST_F(FindWindowTest, aWindowIsFoundByItsWholeTitle)
{
    EXPECT_FALSE(FindWindow(masterTitle));
    show(masterTitle);
    EXPECT_TRUE(FindWindow(masterTitle));
    EXPECT_FALSE(FindWindow(masterTitle.trimmed()));
    EXPECT_FALSE(FindWindow(masterTitle.chopped(1)));
    EXPECT_FALSE(FindWindow(masterTitle + u' '));
    EXPECT_FALSE(FindWindow(masterTitle.toUpper()));
}

TEST_F(FindWindowTest, aWindowThatWasNeverShown_isNotFound)
{
    const xcb_window_t window = client.create();
    client.setNetName(window, masterTitle.toUtf8());
    client.settle();
    EXPECT_FALSE(FindWindow(masterTitle));
}

TEST_F(FindWindowTest, aMinimisedWindowIsFound)
{
    const xcb_window_t window = show(masterTitle);
    client.minimise(window);
    ASSERT_TRUE(eventually([&] { return !client.onScreen(window); }));
    EXPECT_TRUE(FindWindow(masterTitle));
}

TEST_F(FindWindowTest, aWindowOnAnotherDesktopIsFound)
{
    const xcb_window_t window = show(masterTitle);
    client.moveToDesktop(window, 1);
    ASSERT_TRUE(eventually([&] { return !client.onScreen(window); }));
    EXPECT_TRUE(FindWindow(masterTitle));
}

TEST_F(FindWindowTest, aClosedWindowIsNotFoundAnyMore)
{
    const xcb_window_t hidden = show(masterTitle);
    client.unmap(hidden);
    client.settle();
    EXPECT_TRUE(eventually([] { return !FindWindow(masterTitle); }));
    const xcb_window_t gone = show(masterTitle);
    EXPECT_TRUE(FindWindow(masterTitle));
    client.destroy(gone);
    client.settle();
    EXPECT_FALSE(FindWindow(masterTitle));
}

TEST_F(FindWindowTest, withoutAWindowManager_aMappedWindowIsFound_alsoInsideAnother)
{
    const xcb_window_t outer = client.create(XCB_NONE, false);
    const xcb_window_t inner = client.create(outer, false);
    client.setNetName(inner, masterTitle.toUtf8());
    client.map(inner);
    client.settle();
    EXPECT_FALSE(FindWindow(masterTitle)); // its frame is not shown yet
    client.map(outer);
    client.settle();
    EXPECT_TRUE(FindWindow(masterTitle));
}

TEST_F(FindWindowTest, theOldNameCounts_withoutANewOne)
{
    const xcb_window_t window = client.create(XCB_NONE, false);
    client.setOldName(window, "Master \xE9");
    client.map(window);
    client.settle();
    EXPECT_TRUE(FindWindow(u"Master é"_s));
    client.setOldName(window, masterTitle.toUtf8());
    client.settle();
    EXPECT_TRUE(FindWindow(masterTitle));
    client.setNetName(window, "something else");
    client.settle();
    EXPECT_FALSE(FindWindow(masterTitle));
    EXPECT_TRUE(FindWindow(u"something else"_s));
}

TEST_F(FindWindowTest, windowsWithoutATitle_areNotFoundByAnEmptyOne)
{
    client.map(client.create(XCB_NONE, false));
    client.settle();
    EXPECT_FALSE(FindWindow(QString()));
}

TEST_F(FindWindowTest, windowsThatComeAndGoMeanwhile_doNoHarm)
{
    show(masterTitle);
    std::atomic<bool> stop = false;
    std::thread restless([&stop] {
        Client other;
        while (!stop) {
            for (int i = 0; i < 20; ++i) {
                const xcb_window_t window = other.create(XCB_NONE, false);
                other.setNetName(window, "restless");
                other.map(window);
            }
            other.destroyAll();
            other.settle();
        }
    });
    int found = 0;
    int mistaken = 0;
    for (int i = 0; i < 40; ++i) {
        found += FindWindow(masterTitle) ? 1 : 0;
        mistaken += FindWindow(u"no such title"_s) ? 1 : 0;
    }
    stop = true;
    restless.join();
    EXPECT_EQ(found, 40);
    EXPECT_EQ(mistaken, 0);
}

TEST_F(FindWindowTest, withoutAScreen_nothingIsFound)
{
    show(masterTitle);
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", ":54321");
    EXPECT_FALSE(FindWindow(masterTitle));
    qunsetenv("DISPLAY");
    EXPECT_FALSE(FindWindow(masterTitle));
    qputenv("DISPLAY", display);
    EXPECT_TRUE(FindWindow(masterTitle));
}

TEST(WindowsMayBeHidden, inAWaylandSessionOnly)
{
    const QByteArray display = qgetenv("WAYLAND_DISPLAY");
    const QByteArray kind = qgetenv("XDG_SESSION_TYPE");
    qunsetenv("WAYLAND_DISPLAY");
    qputenv("XDG_SESSION_TYPE", "x11");
    EXPECT_FALSE(windowsMayBeHidden());
    qputenv("XDG_SESSION_TYPE", "wayland");
    EXPECT_TRUE(windowsMayBeHidden());
    qunsetenv("XDG_SESSION_TYPE");
    EXPECT_FALSE(windowsMayBeHidden());
    qputenv("WAYLAND_DISPLAY", "wayland-1");
    EXPECT_TRUE(windowsMayBeHidden());
    qputenv("WAYLAND_DISPLAY", display);
    qputenv("XDG_SESSION_TYPE", kind);
}

} // namespace suisui::test
