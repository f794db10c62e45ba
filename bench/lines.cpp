// A whole run of the simulation against the smallest C program that prints the same lines: wall time
// and CPU time, alternately in one run, wherever standard output may lead. Also two runs at once
// against that program's two threads.
//
//   lines [RUNS=15]

#include "simulation/SimulationTask.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace {

struct Sample {
    double wall = 0; // milliseconds
    double cpu = 0;  // milliseconds
};

[[noreturn]] void fail(const char *what)
{
    std::fprintf(stderr, "lines: %s\n", what);
    std::exit(2);
}

double milliseconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

// What the application does, from the press of the button to the word that the last run has ended.
int printAs(int &argc, char *argv[], int runs)
{
    QCoreApplication application(argc, argv);
    int said = 0;
    const double wall = milliseconds(CLOCK_MONOTONIC);
    const double cpu = milliseconds(CLOCK_PROCESS_CPUTIME_ID);
    for (int i = 0; i < runs; ++i)
        startSimulation(&application, [&said, runs](const QString &) {
            if (++said == 2 * runs)
                QCoreApplication::quit();
        });
    QCoreApplication::exec();
    std::fprintf(stderr, "%f %f\n", milliseconds(CLOCK_MONOTONIC) - wall,
                 milliseconds(CLOCK_PROCESS_CPUTIME_ID) - cpu);
    return 0;
}

// Where the lines go: the end to print to, and the end to read from or -1.
struct Sink {
    int print;
    int read = -1;
};

Sink nowhere()
{
    return {open("/dev/null", O_WRONLY)};
}

Sink file()
{
    std::FILE *file = std::tmpfile();
    return {file ? dup(fileno(file)) : -1};
}

Sink pipeThatIsRead()
{
    int ends[2];
    return pipe(ends) == 0 ? Sink{ends[1], ends[0]} : Sink{-1};
}

Sink terminal()
{
    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (grantpt(master) != 0 || unlockpt(master) != 0)
        return {-1};
    return {open(ptsname(master), O_RDWR | O_NOCTTY), master};
}

void readToEnd(int end)
{
    static char room[1 << 16];
    while (end >= 0 && read(end, room, sizeof room) > 0) { }
}

Sample measured(const std::vector<std::string> &command, Sink (*newSink)())
{
    const Sink sink = newSink();
    int figures[2];
    if (sink.print < 0 || pipe(figures) != 0)
        fail("nowhere to print to");
    const pid_t process = fork();
    if (process == 0) {
        dup2(sink.print, 1);
        dup2(figures[1], 2);
        for (const int end : {sink.print, sink.read, figures[0], figures[1]})
            close(end);
        std::vector<char *> arguments;
        for (const std::string &argument : command)
            arguments.push_back(const_cast<char *>(argument.c_str()));
        arguments.push_back(nullptr);
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    close(sink.print);
    close(figures[1]);
    readToEnd(sink.read);
    char text[100] = {};
    const ssize_t got = read(figures[0], text, sizeof text - 1);
    waitpid(process, nullptr, 0);
    close(figures[0]);
    close(sink.read);
    Sample sample;
    if (got <= 0 || std::sscanf(text, "%lf %lf", &sample.wall, &sample.cpu) != 2)
        fail("a program measured nothing");
    return sample;
}

double median(const std::vector<Sample> &samples, double Sample::*figure)
{
    std::vector<double> values;
    for (const Sample &sample : samples)
        values.push_back(sample.*figure);
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compare(const char *name, Sink (*sink)(), int threads, int runs, double bar)
{
    const auto here = std::filesystem::canonical("/proc/self/exe");
    const std::string number = std::to_string(threads);
    const std::vector<std::string> floorCommand{here.parent_path() / "lines_floor", number};
    const std::vector<std::string> ourCommand{here, "--print", number};
    std::vector<Sample> ours, floor;
    measured(floorCommand, sink), measured(ourCommand, sink); // warm the caches
    for (int i = 0; i < runs; ++i) {
        floor.push_back(measured(floorCommand, sink));
        ours.push_back(measured(ourCommand, sink));
    }
    for (const auto &[title, figure] : {std::pair("wall", &Sample::wall), std::pair("CPU", &Sample::cpu)}) {
        const double a = median(ours, figure);
        const double b = median(floor, figure);
        std::printf("%d x %-18s %-4s %9.1f %9.1f ms   ratio %.2f (bar %.2f)\n", threads, name, title, a, b,
                    a / b, bar);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc > 2 && std::string(argv[1]) == "--print")
        return printAs(argc, argv, std::atoi(argv[2]));
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    std::printf("%-27s %9s %9s\n", "median of alternating runs", "tarumine", "floor");
    for (const auto &[threads, bar] : {std::pair(1, 1.10), std::pair(2, 1.15)}) {
        compare("to nowhere", nowhere, threads, 3 * runs, bar);
        compare("to a file", file, threads, 3 * runs, bar);
        compare("to a pipe", pipeThatIsRead, threads, 3 * runs, bar);
        compare("to a terminal", terminal, threads, std::max(1, runs / 3), bar);
    }
    return 0;
}
