// From exec to the first painted window: how long, how much CPU, and how much memory of its own the
// application takes once it is idle, as ratios to a bare window, measured alternately in one run.
//
//   startup [RUNS=15] [PROGRAM FLOOR]

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

struct Sample {
    double painted = 0; // milliseconds
    double cpu = 0;     // milliseconds, until idle
    double dirty = 0;   // KiB
};

[[noreturn]] void fail(const char *what)
{
    throw std::runtime_error(what);
}

// A child that gets this signal when we end, in whatever way.
pid_t forkEndingWith(int signal)
{
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child < 0)
        fail("no new process");
    if (child == 0 && (prctl(PR_SET_PDEATHSIG, signal) != 0 || getppid() != parent))
        _exit(127);
    return child;
}

// Ends with its scope.
class Child {
public:
    explicit Child(int signal)
        : m_signal(signal)
        , m_id(forkEndingWith(signal))
    {
    }
    ~Child() { end(); }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    bool isHere() const { return m_id == 0; }
    pid_t id() const { return m_id; }

    // And returns what it has used.
    rusage end()
    {
        rusage used{};
        if (m_id > 0) {
            kill(m_id, m_signal);
            wait4(m_id, nullptr, 0, &used);
        }
        m_id = -1;
        return used;
    }

private:
    int m_signal;
    pid_t m_id;
};

// A display of our own, so that nothing else paints there. It goes on when the last window is gone.
class VirtualDisplay {
public:
    VirtualDisplay()
    {
        const auto [reader, writer] = m_answer;
        if (m_server.isHere()) {
            close(reader);
            const int quiet = open("/dev/null", O_WRONLY);
            dup2(quiet, 2);
            const std::string where = std::to_string(writer);
            execlp("Xvfb", "Xvfb", "-displayfd", where.c_str(), "-screen", "0", "1400x900x24", "-noreset",
                   nullptr);
            _exit(127);
        }
        close(writer);
        // Its number and the end of the line are written one after the other, and it dies when nobody is
        // there any more to read the latter.
        std::string display = ":";
        char next = 0;
        while (read(reader, &next, 1) == 1 && next != '\n')
            display += next;
        close(reader);
        if (next != '\n')
            fail("Xvfb doesn't start");
        setenv("DISPLAY", display.c_str(), 1);
    }

private:
    static std::array<int, 2> newPipe()
    {
        std::array<int, 2> ends{};
        if (pipe(ends.data()) != 0)
            fail("no pipe");
        return ends;
    }

    std::array<int, 2> m_answer = newPipe();
    Child m_server{SIGTERM};
};

// Nobody's preferences.
class TemporaryHome {
public:
    TemporaryHome()
    {
        if (!mkdtemp(m_path))
            fail("no temporary folder");
        for (const char *name :
             {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
            setenv(name, m_path, 1);
    }
    ~TemporaryHome() { std::filesystem::remove_all(m_path); }
    TemporaryHome(const TemporaryHome &) = delete;
    TemporaryHome &operator=(const TemporaryHome &) = delete;

private:
    char m_path[32] = "/tmp/startup-XXXXXX";
};

class Watcher {
public:
    Watcher()
        : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection))
            fail("no connection to the display");
        const auto *damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        if (!damage || !damage->present)
            fail("the display can't tell what is painted");
        m_damageNotify = damage->first_event + XCB_DAMAGE_NOTIFY;
        free(xcb_damage_query_version_reply(m_connection, xcb_damage_query_version(m_connection, 1, 1),
                                            nullptr));
        m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &mask);
        xcb_flush(m_connection);
    }
    ~Watcher() { xcb_disconnect(m_connection); }

    // True when, before the deadline, half of a window of some size has been painted.
    bool waitForPaint(Clock::time_point deadline)
    {
        while (Clock::now() < deadline) {
            while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection)) {
                const bool painted = handle(event);
                free(event);
                if (painted)
                    return true;
            }
            pollfd incoming{xcb_get_file_descriptor(m_connection), POLLIN, 0};
            poll(&incoming, 1, 20);
        }
        return false;
    }

private:
    bool handle(xcb_generic_event_t *event)
    {
        const int type = event->response_type & 0x7f;
        if (type == XCB_CREATE_NOTIFY) {
            const auto *created = reinterpret_cast<xcb_create_notify_event_t *>(event);
            if (created->parent == m_root && created->width > 200 && created->height > 200) {
                xcb_damage_create(m_connection, xcb_generate_id(m_connection), created->window,
                                  XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
                xcb_flush(m_connection);
            }
        } else if (type == m_damageNotify) {
            const auto *damaged = reinterpret_cast<xcb_damage_notify_event_t *>(event);
            return 2 * damaged->area.width * damaged->area.height
                > damaged->geometry.width * damaged->geometry.height;
        }
        return false;
    }

    xcb_connection_t *m_connection;
    xcb_window_t m_root = 0;
    int m_damageNotify = 0;
};

double dirtyKib(pid_t process)
{
    std::ifstream memory("/proc/" + std::to_string(process) + "/smaps_rollup");
    for (std::string word; memory >> word;) {
        double kib = 0;
        if (word == "Private_Dirty:" && memory >> kib)
            return kib;
    }
    fail("no memory figures");
}

Sample run(const std::string &program)
{
    Watcher watcher;
    const auto start = Clock::now();
    Child process(SIGKILL);
    if (process.isHere()) {
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    if (!watcher.waitForPaint(start + std::chrono::seconds(20)))
        fail("no window was painted");
    Sample sample;
    sample.painted = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    usleep(700'000); // until it is idle
    sample.dirty = dirtyKib(process.id());
    const rusage used = process.end();
    const auto milliseconds = [](const timeval &time) { return time.tv_sec * 1e3 + time.tv_usec / 1e3; };
    sample.cpu = milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
    return sample;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

double medianOf(const std::vector<Sample> &samples, double Sample::*figure)
{
    std::vector<double> values;
    for (const Sample &sample : samples)
        values.push_back(sample.*figure);
    return median(std::move(values));
}

void report(const char *name, const char *unit, const std::vector<Sample> &ours,
            const std::vector<Sample> &floor, double Sample::*figure, double bar)
{
    const double a = medianOf(ours, figure);
    const double b = medianOf(floor, figure);
    std::printf("%-28s %9.1f %9.1f %-4s ratio %.2f (bar %.2f)\n", name, a, b, unit, a / b, bar);
}

void compare(const std::string &program, const std::string &bare, int runs)
{
    const TemporaryHome home;
    const VirtualDisplay display;
    std::vector<Sample> ours, floor;
    run(bare), run(program); // warm the caches
    for (int i = 0; i < runs; ++i) {
        floor.push_back(run(bare));
        ours.push_back(run(program));
    }
    std::printf("%-28s %9s %9s\n", "median of alternating runs", "tarumine", "bare");
    report("painted after", "ms", ours, floor, &Sample::painted, 1.3);
    report("CPU until idle", "ms", ours, floor, &Sample::cpu, 1.3);
    report("private dirty memory", "KiB", ours, floor, &Sample::dirty, 1.4);
}

} // namespace

int main(int argc, char *argv[])
{
    const auto here = std::filesystem::canonical("/proc/self/exe").parent_path();
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    const std::string program = argc > 3 ? argv[2] : (here.parent_path() / "tarumine").string();
    const std::string bare = argc > 3 ? argv[3] : (here / "bare_window").string();
    try {
        compare(program, bare, runs);
        return 0;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "startup: %s\n", error.what());
        return 2;
    }
}
