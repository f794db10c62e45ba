#pragma once

#include "platform/linux/Descriptor.h"

#include <cstddef>
#include <string_view>
#include <vector>

/// Memory that is handed to another process as a file, of a size that nobody can change. Not open where it
/// can't be had.
class SharedMemory {
public:
    /// So many zeros, to be written by the other process.
    explicit SharedMemory(std::size_t bytes);

    /// These one after the other, never to be written again.
    explicit SharedMemory(const std::vector<std::string_view> &parts);

    bool isOpen() const { return m_file.isOpen(); }
    int number() const { return m_file.number(); } ///< the descriptor

    /// From now on nobody can write; false when somebody still has it mapped for writing.
    bool seal();

private:
    Descriptor m_file;
};

/// Whether a descriptor stands for such memory, of at least so many bytes, that nobody can change.
bool isSealed(int file, std::size_t bytes);

/// The beginning of a file as memory. What is seen of a file that isn't sealed, or that is cut short, can
/// change or end the process.
class Mapped {
public:
    enum class For { Reading, Writing };

    Mapped(int file, std::size_t bytes, For what);
    ~Mapped();
    Mapped(const Mapped &) = delete;
    Mapped &operator=(const Mapped &) = delete;

    /// Null where the system refuses.
    char *data() const { return m_data; }
    std::string_view bytes() const { return {m_data, m_data ? m_size : 0}; }

private:
    char *m_data = nullptr;
    std::size_t m_size;
};

/// Copies much on two threads, since the system takes most of the time, finding memory.
void copyByHalves(std::string_view from, char *to);

/// Has the system find memory for so many bytes of what was allocated now, not when they are written.
void populate(char *memory, std::size_t bytes);
