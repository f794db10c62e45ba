#pragma once

#include <QByteArray>

#include <memory>
#include <optional>

/// An ordinary file that is open for reading.
class OpenFile {
public:
    /// Nothing for whatever else stands there, or where the file has more than `limit` bytes.
    static std::shared_ptr<const OpenFile> at(const char *path, qint64 limit);

    explicit OpenFile(int number)
        : m_number(number)
    {
    }
    ~OpenFile();
    Q_DISABLE_COPY_MOVE(OpenFile)

    int number() const { return m_number; } ///< the descriptor
    qint64 size() const { return m_size; }  ///< in bytes, as the file claims

    /// All of it; nothing when that can't be read, or turns out to be more than `limit`.
    std::optional<QByteArray> read(qint64 limit) const;

private:
    int m_number;
    qint64 m_size = 0;
};
