#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>
#include <optional>

/// What is in an ordinary file; a copy shares it. A large file isn't copied either, where the system
/// promises that nobody changes it as long as this lives: who wants to write it is made to wait, so don't
/// keep it long.
class FileContent {
public:
    /// Nothing where `readRegularFile` has nothing. More than `large` bytes are worth not being copied.
    static std::optional<FileContent> of(const QString &path, qint64 limit, qint64 large);

    FileContent() = default;
    explicit FileContent(const QByteArray &bytes);

    QByteArrayView bytes() const { return m_bytes; }

    /// The file where it isn't copied; -1 where it is.
    int descriptor() const { return m_descriptor; }

private:
    std::shared_ptr<const void> m_owner;
    QByteArrayView m_bytes;
    int m_descriptor = -1; // the owner's
};
