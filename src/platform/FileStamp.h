#pragma once

#include <string>

/// By what one tells whether a file is still the one that was there before, without reading it: an equal
/// stamp says so for sure. Taken too soon after a change, a stamp equals none, since the clock of the file
/// system is coarse.
class FileStamp {
public:
    FileStamp() = default; ///< of nothing, and equal to none
    static FileStamp of(const std::string &path);

    bool operator==(const FileStamp &other) const;

private:
    unsigned long long m_device = 0, m_number = 0;
    long long m_size = 0, m_changed = 0; // bytes; nanoseconds
    bool m_isSettled = false;
};
