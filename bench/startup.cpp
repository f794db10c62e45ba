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
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
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
    std::fprintf(stderr, "startup: %s\n", what);
    std::exit(2);
}

// A display of our own, so that nothing else paints there.
class VirtualDisplay {
public:
    VirtualDisplay()
    {
        int ends[2];
        if (pipe(ends) != 0)
            fail("no pipe");
        m_server = fork();
        if (m_server == 0) {
            close(ends[0]);
            const int quiet = open("/dev/null", O_WRONLY);
            dup2(quiet, 2);
            const std::string where = std::to_string(ends[1]);
            execlp("Xvfb", "Xvfb", "-displayfd", where.c_str(), "-screen", "0", "1400x900x24", nullptr);
            _exit(127);
        }
        close(ends[1]);
        char number[16] = {};
        if (read(ends[0], number, sizeof number - 1) <= 0)
            fail("Xvfb doesn't start");
        setenv("DISPLAY", std::string(":").append(std::to_string(std::atoi(number))).c_str(), 1);
    }
    ~VirtualDisplay()
    {
        kill(m_server, SIGTERM);
        waitpid(m_server, nullptr, 0);
    }

private:
    pid_t m_server;
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
    const pid_t process = fork();
    if (process == 0) {
        execl(program.c_str(), program.c_str(), nullptr);
        _exit(127);
    }
    if (!watcher.waitForPaint(start + std::chrono::seconds(20)))
        fail("no window was painted");
    Sample sample;
    sample.painted = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    usleep(700'000); // until it is idle
    sample.dirty = dirtyKib(process);
    kill(process, SIGKILL);
    rusage used{};
    wait4(process, nullptr, 0, &used);
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

} // namespace

int main(int argc, char *argv[])
{
    const auto here = std::filesystem::canonical("/proc/self/exe").parent_path();
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    const std::string program = argc > 3 ? argv[2] : (here.parent_path() / "tarumine").string();
    const std::string bare = argc > 3 ? argv[3] : (here / "bare_window").string();

    char home[] = "/tmp/startup-XXXXXX"; // nobody's preferences
    if (!mkdtemp(home))
        fail("no temporary folder");
    for (const char *name :
         {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        setenv(name, home, 1);
    {
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
    std::filesystem::remove_all(home);
    return 0;
}
