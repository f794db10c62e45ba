#include "preferences/UserDefaults.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QStandardPaths>

#include <algorithm>
#include <cstdlib>

using namespace std::chrono_literals;

namespace {

// Other processes have the file for some milliseconds at most.
constexpr auto patience = 200ms;
constexpr auto firstPause = 500ms, longestPause = 60'000ms;

QString standardFileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/tarumine/Tarumine.conf");
}

// Itself, or the first of those above that is there.
QString nearestFolder(const QString &path)
{
    return QFileInfo::exists(path) || path == QDir::rootPath() ? path
                                                               : nearestFolder(QFileInfo(path).path());
}

QByteArray bytes(QLatin1StringView key)
{
    return {key.data(), key.size()};
}

} // namespace

UserDefaults &UserDefaults::standard()
{
    static UserDefaults store(standardFileName());
    return store;
}

UserDefaults::UserDefaults(const QString &fileName)
    : m_file(fileName)
{
    m_nextTry.setSingleShot(true);
    connect(&m_nextTry, &QTimer::timeout, this, &UserDefaults::keepTrying);
    if (QCoreApplication *application = QCoreApplication::instance())
        connect(application, &QCoreApplication::aboutToQuit, this, [this] { write(0ms); });
}

UserDefaults::~UserDefaults() = default;

void UserDefaults::refresh() const
{
    if (m_file.refresh())
        emit didChange();
}

qint64 UserDefaults::integer(QLatin1StringView key) const
{
    // What strtoll does is the rule: leading blanks, a sign, digits, and the nearest value on overflow.
    return std::strtoll(string(key).value_or(QString()).toLatin1().constData(), nullptr, 10);
}

std::optional<QString> UserDefaults::string(QLatin1StringView key) const
{
    refresh();
    const auto unwritten = m_unwritten.find(bytes(key));
    return unwritten == m_unwritten.end() ? m_file.text().value(key) : *unwritten;
}

void UserDefaults::setInteger(qint64 value, QLatin1StringView key)
{
    setString(QString::number(value), key);
}

void UserDefaults::setString(const QString &value, QLatin1StringView key)
{
    const bool isHeldUp = !m_unwritten.isEmpty();
    m_unwritten.insert(bytes(key), value);
    if (!write(isHeldUp ? 0ms : patience) && !m_nextTry.isActive())
        m_nextTry.start(firstPause);
    emit didChange();
}

bool UserDefaults::write(std::chrono::milliseconds patience)
{
    const auto change = [this](IniText &text) {
        for (auto value = m_unwritten.cbegin(); value != m_unwritten.cend(); ++value)
            text.setValue(*value, QLatin1StringView(value.key()));
    };
    if (!m_unwritten.isEmpty() && !m_file.change(change, patience))
        return false;
    m_unwritten.clear();
    return true;
}

void UserDefaults::keepTrying()
{
    if (write(0ms))
        emit didChange();
    else
        m_nextTry.start(
            std::min<std::chrono::milliseconds>(m_nextTry.intervalAsDuration() * 2, longestPause));
}

// The folder tells of a file that was replaced, the file itself of one that was written into. A folder that
// isn't there yet is announced by those above.
void UserDefaults::watch()
{
    if (!m_watcher) {
        m_watcher = std::make_unique<QFileSystemWatcher>();
        const auto look = [this] { watch(), refresh(); };
        connect(m_watcher.get(), &QFileSystemWatcher::directoryChanged, this, look);
        connect(m_watcher.get(), &QFileSystemWatcher::fileChanged, this, look);
    }
    const auto folder = [this] { return nearestFolder(QFileInfo(fileName()).path()); };
    // Once more where a folder has been made meanwhile.
    while (!m_watcher->directories().contains(folder()) && m_watcher->addPath(folder())) { }
    if (QFileInfo::exists(fileName()))
        m_watcher->addPath(fileName());
}
