#include "platform/linux/gio/StartupSequence.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include <unistd.h>
#include <xcb/xcb.h>

// Ours, since libstartup-notification 0.12 can't say which entry it is (its header declares what the
// library lacks), leaves the server's time, a lock and the wait until all is sent to us, and so spares but
// 20 lines.
namespace {

// A connection of our own: these are asked on a thread that may wait.
class Display {
public:
    Display()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_window(xcb_generate_id(m_connection))
    {
        if (!isOpen())
            return;
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_create_window(m_connection, 0, m_window, m_root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    }
    ~Display() { xcb_disconnect(m_connection); }
    Display(const Display &) = delete;
    Display &operator=(const Display &) = delete;

    bool isOpen() const { return !xcb_connection_has_error(m_connection); }

    // The server's own: it stamps what happens, so something happens. 0 when the server goes.
    xcb_timestamp_t time()
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, m_window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING,
                            8, 0, nullptr);
        xcb_flush(m_connection);
        xcb_timestamp_t time = 0;
        while (auto *event = xcb_wait_for_event(m_connection)) {
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY)
                time = reinterpret_cast<xcb_property_notify_event_t *>(event)->time;
            std::free(event);
            if (time != 0)
                break;
        }
        return time;
    }

    // To every window manager and panel, in the pieces that fit into an event; a zero byte ends it.
    void broadcast(const std::string &message)
    {
        xcb_client_message_event_t piece{};
        piece.response_type = XCB_CLIENT_MESSAGE;
        piece.format = 8;
        piece.window = m_window;
        piece.type = atom("_NET_STARTUP_INFO_BEGIN");
        for (size_t sent = 0; sent <= message.size(); sent += sizeof piece.data.data8) {
            std::memset(piece.data.data8, 0, sizeof piece.data.data8);
            message.copy(reinterpret_cast<char *>(piece.data.data8), sizeof piece.data.data8, sent);
            xcb_send_event(m_connection, 0, m_root, XCB_EVENT_MASK_PROPERTY_CHANGE,
                           reinterpret_cast<const char *>(&piece));
            piece.type = atom("_NET_STARTUP_INFO");
        }
        xcb_flush(m_connection);
    }

private:
    xcb_atom_t atom(const char *name)
    {
        const auto asked = xcb_intern_atom(m_connection, 0, uint16_t(std::strlen(name)), name);
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
            xcb_intern_atom_reply(m_connection, asked, nullptr), &std::free);
        return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_window;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

std::string inQuotes(const std::string &value)
{
    std::string quoted = "\"";
    for (const char c : value) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c;
    }
    return quoted + '"';
}

std::string newId(const std::string &program, xcb_timestamp_t time)
{
    static std::atomic<int> count;
    char host[256] = {};
    ::gethostname(host, sizeof host - 1);
    return "tarumine-" + std::to_string(::getpid()) + '-' + host + '-' + program + '-'
        + std::to_string(count++) + "_TIME" + std::to_string(time);
}

// On a Wayland desktop an X display may be there too, but our windows aren't, so it knows nothing of
// what the user does in them.
bool usesXDisplay()
{
    const char *wayland = std::getenv("WAYLAND_DISPLAY");
    return std::getenv("DISPLAY") && !(wayland && *wayland);
}

} // namespace

std::string StartupSequence::begin(const Program &program)
{
    if (!usesXDisplay())
        return {};
    Display display;
    const xcb_timestamp_t time = display.isOpen() ? display.time() : 0;
    if (time == 0)
        return {};
    std::string id = newId(std::filesystem::path(program.entry).stem().string(), time);
    std::string message = "new: ID=" + inQuotes(id) + " SCREEN=0 NAME=" + inQuotes(program.name)
        + " APPLICATION_ID=" + inQuotes(program.entry) + " TIMESTAMP=" + std::to_string(time);
    if (!program.windowClass.empty())
        message += " WMCLASS=" + inQuotes(program.windowClass);
    display.broadcast(message);
    return id;
}

void StartupSequence::end(const std::string &id)
{
    Display display;
    if (display.isOpen())
        display.broadcast("remove: ID=" + inQuotes(id));
}
