// What it costs to find the installed browsers, as a ratio to listing the same folders and opening the
// same files and doing nothing with them, measured alternately in one run.
//
//   browsers [RUNS=15]

#include "browsers/InstalledBrowsers.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

double millisecondsOf(auto work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// One in a hundred is a browser, and is as long as browsers' entries are.
void writeEntry(const fs::path &folder, int number)
{
    const bool isBrowser = number % 100 == 0;
    std::ofstream entry(folder / ("org.example.App" + std::to_string(number) + ".desktop"));
    entry << "[Desktop Entry]\nType=Application\nName=Application " << number << "\nExec=true %u\n"
          << "Categories=" << (isBrowser ? "Network;WebBrowser;\n" : "Utility;\n");
    for (int line = 0; line < (isBrowser ? 100 : 20); ++line)
        entry << "Comment[x" << line << "]=What this application is for, in one of many languages\n";
}

void open(const fs::path &folder)
{
    DIR *listing = opendir(folder.c_str());
    while (const dirent *entry = listing ? readdir(listing) : nullptr) {
        if (entry->d_type == DT_REG)
            close(openat(dirfd(listing), entry->d_name, O_RDONLY));
    }
    if (listing)
        closedir(listing);
}

void measure(const fs::path &root, int entries, int bundles, int runs)
{
    const fs::path registry = root / "data" / "applications";
    const BundleFolders folders{.system = root / "Applications", .own = root / "home" / "Applications"};
    for (const fs::path &folder : {registry, folders.system, folders.own}) {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    for (int i = 0; i < entries; ++i)
        writeEntry(registry, i);
    for (int i = 0; i < bundles; ++i)
        fs::create_directory((i % 2 ? folders.own : folders.system)
                             / ("Application " + std::to_string(i) + (i % 10 ? ".app" : " Edge.app")));

    std::vector<double> floor, ours;
    qsizetype found = 0;
    const Workspace workspace;
    for (int run = -1; run < runs; ++run) { // the first one warms the caches
        const double bare = millisecondsOf([&] {
            for (const fs::path &folder : {registry, folders.system, folders.own})
                open(folder);
        });
        const double finding =
            millisecondsOf([&] { found = installedBrowsers(folders, workspace.webBrowsers()).size(); });
        if (run < 0)
            continue;
        floor.push_back(bare);
        ours.push_back(finding);
    }
    const double a = median(ours), b = median(floor);
    std::printf("%5d entries %5d bundles %5lld found %8.2f %8.2f ms  ratio %.2f%s\n", entries, bundles,
                static_cast<long long>(found), a, b, a / b,
                entries == 2000 && bundles == 2000 ? " (bar 3.00)" : "");
}

} // namespace

int main(int argc, char *argv[])
{
    const int runs = argc > 1 ? std::max(1, std::atoi(argv[1])) : 15;
    std::string root = (fs::temp_directory_path() / "browsers-XXXXXX").string();
    if (!mkdtemp(root.data()))
        return 2;
    // Before the first question to the desktop, whose folders are settled then.
    setenv("XDG_DATA_HOME", (root + "/data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root + "/none").c_str(), 1);
    for (const auto &[entries, bundles] :
         {std::pair(0, 0), {50, 0}, {50, 20}, {2000, 0}, {0, 2000}, {2000, 2000}})
        measure(root, entries, bundles, runs);
    fs::remove_all(root);
    return 0;
}
