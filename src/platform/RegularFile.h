#pragma once

#include <QByteArray>
#include <QString>

#include <filesystem>
#include <optional>

/// The whole content of an ordinary file of at most `limit` bytes. Nothing for whatever else stands
/// under the name (a folder, a FIFO, a device, a socket), for an unreadable file and for a larger
/// one. Never waits for a writer, and never opens what is not an ordinary file.
std::optional<QByteArray> readRegularFile(const std::filesystem::path &path, qint64 limit);
std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit);

/// Whether an ordinary file stands there that this user may execute.
bool isProgram(const std::filesystem::path &file);
