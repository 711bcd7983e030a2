#include "platform/core/FindWindow.h"

#include <cstdlib>
#include <cstring>
#include <memory>

#include <xcb/xcb.h>

namespace suisui {

namespace {

struct Free
{
    void operator()(void* reply) const { std::free(reply); }
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
template <typename Reply> using Owned = std::unique_ptr<Reply, Free>;

constexpr std::uint32_t longestTitle = 1024; // in 32-bit units, as xcb counts property lengths

// States in WM_STATE, the note of the window manager at each window that a program shows (ICCCM 4.1.3.1).
constexpr std::uint32_t normalState = 1;
constexpr std::uint32_t iconicState = 3;

/// The search of one display, through a connection of its own.
class Search
{
public:
    explicit Search(const QString& title) : m_title(title), m_connection(xcb_connect(nullptr, nullptr)) {}

    [[nodiscard]] bool run()
    {
        if (xcb_connection_has_error(m_connection.get()) != 0)
            return false;
        m_netName = atom("_NET_WM_NAME");
        m_utf8 = atom("UTF8_STRING");
        m_state = atom("WM_STATE");
        for (auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())); screens.rem > 0;
             xcb_screen_next(&screens))
            if (below(screens.data->root))
                return true;
        return false;
    }

private:
    xcb_atom_t atom(const char* name)
    {
        const auto cookie = xcb_intern_atom(
            m_connection.get(), 0, static_cast<std::uint16_t>(std::char_traits<char>::length(name)), name);
        const Owned<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection.get(), cookie, nullptr));
        return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    }

    QByteArray property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type)
    {
        const auto cookie = xcb_get_property(m_connection.get(), 0, window, name, type, 0, longestTitle);
        const Owned<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(m_connection.get(), cookie, nullptr));
        if (!reply)
            return {}; // the window has gone meanwhile
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                xcb_get_property_value_length(reply.get())};
    }

    /// On the screen, or where the window manager has put it away: minimised, or on another desktop.
    bool shown(xcb_window_t window)
    {
        const QByteArray managed = property(window, m_state, m_state);
        std::uint32_t state = 0;
        if (managed.size() >= static_cast<qsizetype>(sizeof(state)))
            std::memcpy(&state, managed.constData(), sizeof(state));
        return state == normalState || state == iconicState || viewable(window);
    }

    bool viewable(xcb_window_t window)
    {
        const auto cookie = xcb_get_window_attributes(m_connection.get(), window);
        const Owned<xcb_get_window_attributes_reply_t> reply(
            xcb_get_window_attributes_reply(m_connection.get(), cookie, nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }

    bool titled(xcb_window_t window)
    {
        const QByteArray netName = property(window, m_netName, m_utf8);
        if (!netName.isEmpty())
            return QString::fromUtf8(netName) == m_title;
        const QByteArray name = property(window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY);
        return !name.isEmpty()
               && (QString::fromUtf8(name) == m_title || QString::fromLatin1(name) == m_title);
    }

    bool below(xcb_window_t parent)
    {
        const auto cookie = xcb_query_tree(m_connection.get(), parent);
        const Owned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(m_connection.get(), cookie, nullptr));
        if (!tree)
            return false;
        const xcb_window_t* children = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i)
            if ((titled(children[i]) && shown(children[i])) || below(children[i]))
                return true;
        return false;
    }

    QString m_title;
    Owned<xcb_connection_t> m_connection;
    xcb_atom_t m_netName = XCB_ATOM_NONE;
    xcb_atom_t m_utf8 = XCB_ATOM_NONE;
    xcb_atom_t m_state = XCB_ATOM_NONE;
};

} // namespace

bool FindWindow(const QString& title)
{
    return Search(title).run();
}

bool windowsMayBeHidden()
{
    return !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace suisui
