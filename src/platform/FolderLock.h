#pragma once

#include <chrono>
#include <string>

/// Keeps other processes from having the same lock, for as long as it lives; it never outlives its process.
/// It is on the folder itself, so no file is made for it that could be left behind, or be in the way.
class FolderLock {
public:
    /// Waits no longer than `patience`.
    FolderLock(const std::string &folder, std::chrono::milliseconds patience);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

    /// False when somebody else has the lock. Where the file system knows no locks, everybody has it.
    bool isHeld() const { return m_isHeld; }

private:
    int m_folder;
    bool m_isHeld;
};
