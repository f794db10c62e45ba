#include "preferences/StoreFile.h"

#include "platform/FileName.h"
#include "platform/FolderLock.h"
#include "platform/RegularFile.h"
#include "platform/WholeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <utility>

namespace {

constexpr qint64 largest = 16 << 20; // bytes; ours are less than a thousandth of that

void moveAside(const QString &fileName)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    QFile::rename(fileName, fileName + QStringLiteral(".unreadable-") + stamp);
}

} // namespace

StoreFile::StoreFile(const QString &name)
    : m_name(QFileInfo(name).absoluteFilePath())
{
    m_text = latest().value_or(IniText());
}

// Nothing for a file that can't be read; one that isn't there is empty.
std::optional<QByteArray> StoreFile::read()
{
    m_stamp = FileStamp::of(FileName::bytes(m_name)); // before reading, so that no change is missed
    if (!QFile::exists(m_name))
        return QByteArray();
    return readRegularFile(m_name, largest);
}

bool StoreFile::refresh()
{
    if (m_stamp == FileStamp::of(FileName::bytes(m_name)))
        return false;
    const auto bytes = read();
    auto text = bytes && bytes != m_bytes ? IniText::parsed(*bytes) : std::nullopt;
    if (!text)
        return false;
    m_bytes = *bytes;
    m_text = *std::move(text);
    return true;
}

// The text to go on from, now that it matters. Nothing when somebody has one there that we may not read.
std::optional<IniText> StoreFile::latest()
{
    const auto bytes = read();
    if (!bytes)
        return std::nullopt;
    if (auto text = IniText::parsed(*bytes)) {
        m_bytes = *bytes;
        return text;
    }
    moveAside(m_name);
    m_bytes.clear();
    return m_text;
}

bool StoreFile::change(const std::function<void(IniText &)> &change, std::chrono::milliseconds patience)
{
    const QString folder = QFileInfo(m_name).path();
    QDir().mkpath(folder);
    const FolderLock lock(FileName::bytes(folder), patience);
    if (!lock.isHeld())
        return false;
    auto text = latest();
    if (!text)
        return false;
    change(*text);
    const QByteArray bytes = text->bytes();
    if (bytes != m_bytes && !write(bytes))
        return false;
    m_stamp = {};
    m_bytes = bytes;
    m_text = *std::move(text);
    return true;
}

bool StoreFile::write(const QByteArray &bytes) const
{
    WholeFile file(FileName::bytes(m_name));
    return file.write(bytes.constData(), std::size_t(bytes.size())) && file.commit();
}
