#include "platform/linux/EntrySearch.h"

#include <array>
#include <cstring>
#include <memory>
#include <set>
#include <string_view>
#include <unordered_set>

#include <fcntl.h>
#include <unistd.h>

using std::filesystem::path;

namespace {

constexpr std::string_view webPages = "x-scheme-handler/http";

class Search {
public:
    void look(const path &folder, const std::string &idPrefix = {});
    bool mentions(const path &file, std::initializer_list<std::string_view> marks);

    SearchedRegistry m_found;

private:
    void lookAt(const std::filesystem::directory_entry &entry, const std::string &name,
                const std::string &idPrefix);
    bool mentions(int file, std::initializer_list<std::string_view> marks);

    std::set<path> m_folders;
    std::unordered_set<std::string> m_ids; // an entry hides those of the same id that come later
    std::array<char, 64 << 10> m_room;
};

void Search::look(const path &folder, const std::string &idPrefix)
{
    std::error_code error;
    if (!m_folders.insert(std::filesystem::canonical(folder, error)).second || error)
        return; // a link that leads round in a circle, or nowhere
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
        lookAt(*entries, entries->path().filename().string(), idPrefix);
}

void Search::lookAt(const std::filesystem::directory_entry &entry, const std::string &name,
                    const std::string &idPrefix)
{
    std::error_code unknown;
    if (entry.is_directory(unknown)) {
        look(entry.path(), idPrefix + name + '-');
    } else if (name.ends_with(".desktop")) {
        if (m_ids.insert(idPrefix + name).second && entry.is_regular_file(unknown)
            && mentions(entry.path(), {"WebBrowser", webPages}))
            m_found.entries.push_back(entry.path());
    } else if (name.ends_with("mimeapps.list") && idPrefix.empty() && entry.is_regular_file(unknown)) {
        m_found.hasAssociations = m_found.hasAssociations || mentions(entry.path(), {webPages});
    }
}

bool Search::mentions(const path &name, std::initializer_list<std::string_view> marks)
{
    const int file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file < 0)
        return false;
    const bool found = mentions(file, marks);
    ::close(file);
    return found;
}

bool Search::mentions(int file, std::initializer_list<std::string_view> marks)
{
    constexpr size_t overlap = 32; // a mark may lie across the end of what is read at a time
    constexpr int mostReads = 32;  // 2 MiB; entries have a few KiB
    size_t kept = 0;
    for (int reads = 0; reads < mostReads; ++reads) {
        const ssize_t got = ::read(file, m_room.data() + kept, m_room.size() - kept);
        if (got <= 0)
            return false;
        const size_t size = kept + size_t(got);
        for (const std::string_view mark : marks) {
            if (::memmem(m_room.data(), size, mark.data(), mark.size()))
                return true;
        }
        if (size < m_room.size())
            return false; // that was all
        kept = overlap;
        std::memmove(m_room.data(), m_room.data() + size - kept, kept);
    }
    return false;
}

} // namespace

SearchedRegistry searchRegistry(const std::vector<path> &folders)
{
    const auto search = std::make_unique<Search>();
    for (const path &folder : folders)
        search->look(folder);
    return std::move(search->m_found);
}

bool anyMentionsWebPages(const std::vector<path> &files)
{
    const auto search = std::make_unique<Search>();
    for (const path &file : files) {
        std::error_code unknown;
        if (std::filesystem::is_regular_file(file, unknown) && search->mentions(file, {webPages}))
            return true;
    }
    return false;
}
