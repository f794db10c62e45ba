#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// A file that appears under its name whole, or not at all: until it is committed, an older one of that
/// name stays as it is, and whatever happens, nothing is left behind where it could be seen. It takes over
/// whose an older one is, as far as that is allowed, and who may use it; of a link, it replaces the target.
class WholeFile {
public:
    /// Bytes of the file's name. What stands there and is no ordinary file is never replaced.
    explicit WholeFile(const std::string &path);
    ~WholeFile();
    WholeFile(const WholeFile &) = delete;
    WholeFile &operator=(const WholeFile &) = delete;

    bool write(const char *bytes, std::size_t count);

    /// Puts what was written under the name, safe against a loss of power.
    bool commit();

    /// Why something was false: an errno, or 0.
    int error() const { return m_error; }

private:
    bool open();
    bool openBeside(const std::string &folder);
    bool openNamed(const std::string &folder);
    bool giveName();
    bool failed();

    std::string m_path;
    std::string m_beside; // the name that the file has until it gets its own; may be empty
    int m_file = -1;
    int m_error = 0;
};
