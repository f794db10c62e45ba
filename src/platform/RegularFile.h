#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <filesystem>
#include <memory>
#include <optional>

/// The whole content of an ordinary file of at most `limit` bytes. Nothing for whatever else stands
/// under the name (a folder, a FIFO, a device, a socket), for an unreadable file and for a larger
/// one. Never waits for a writer, and never opens what is not an ordinary file.
std::optional<QByteArray> readRegularFile(const std::filesystem::path &path, qint64 limit);
std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit);

/// The content of such a file; a copy shares it. A large one is no copy of the file either, where the
/// system promises that nobody changes the file as long as this lives: who wants to write it is made to
/// wait, so don't keep it long.
class FileContent {
public:
    /// Nothing where `readRegularFile` has nothing.
    static std::optional<FileContent> of(const QString &path, qint64 limit);

    FileContent() = default;
    explicit FileContent(const QByteArray &bytes);

    QByteArrayView bytes() const { return m_bytes; }

private:
    std::shared_ptr<const void> m_owner;
    QByteArrayView m_bytes;
};

/// Whether an ordinary file stands there that this user may execute.
bool isProgram(const std::filesystem::path &file);
