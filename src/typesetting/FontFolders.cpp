#include "typesetting/FontFolders.h"

#include <filesystem>
#include <fontconfig/fontconfig.h>

namespace fs = std::filesystem;

namespace {

FcConfig *configured = nullptr;

std::vector<std::string> strings(FcStrList *list)
{
    std::vector<std::string> all;
    while (const FcChar8 *text = list ? FcStrListNext(list) : nullptr)
        all.emplace_back(reinterpret_cast<const char *>(text));
    if (list)
        FcStrListDone(list);
    return all;
}

// Distributions keep some fonts elsewhere.
void addTargets(std::vector<std::string> &all, const std::string &folder)
{
    std::error_code error;
    const fs::recursive_directory_iterator end;
    for (fs::recursive_directory_iterator at(folder, error); !error && at != end; at.increment(error)) {
        if (at->is_symlink(error))
            all.push_back(at->path());
    }
}

} // namespace

std::vector<std::string> fontFolders()
{
    configured = FcInitLoadConfig();
    std::vector<std::string> all = strings(FcConfigGetCacheDirs(configured));
    for (const std::string &folder : strings(FcConfigGetFontDirs(configured))) {
        all.push_back(folder);
        addTargets(all, folder);
    }
    return all;
}

void openFontFolders()
{
    FcConfigSetRescanInterval(configured, 0); // the configuration can't be read again
    FcConfigSetCurrent(configured);
}
