#include "preferences/UserDefaults.h"

#include <QDateTime>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <cstdlib>

namespace {

std::unique_ptr<QSettings> opened(const QString &fileName)
{
    return std::make_unique<QSettings>(fileName, QSettings::IniFormat);
}

void moveAside(const QString &fileName)
{
    const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss-zzz"));
    QFile::rename(fileName, fileName + QStringLiteral(".unreadable-") + stamp);
}

QString standardFileName()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/tarumine/Tarumine.conf");
}

} // namespace

UserDefaults &UserDefaults::standard()
{
    static UserDefaults store(standardFileName());
    return store;
}

UserDefaults::UserDefaults(const QString &fileName)
    : m_settings(opened(fileName))
{
    m_settings->allKeys(); // sections are parsed, and found to be broken, only when they are looked at
    if (m_settings->status() == QSettings::FormatError) {
        m_settings.reset(); // before the move, so that nothing of the old content is kept in memory
        moveAside(fileName);
        m_settings = opened(fileName);
    }
}

UserDefaults::~UserDefaults() = default;

qint64 UserDefaults::integer(QLatin1StringView key) const
{
    // What strtoll does is the rule: leading blanks, a sign, digits, and the nearest value on overflow.
    return std::strtoll(m_settings->value(key).toString().toLatin1().constData(), nullptr, 10);
}

std::optional<QString> UserDefaults::string(QLatin1StringView key) const
{
    const QVariant value = m_settings->value(key);
    if (!value.canConvert<QString>())
        return std::nullopt;
    return value.toString();
}

void UserDefaults::setInteger(qint64 value, QLatin1StringView key)
{
    store(value, key);
}

void UserDefaults::setString(const QString &value, QLatin1StringView key)
{
    store(value, key);
}

QString UserDefaults::fileName() const
{
    return m_settings->fileName();
}

void UserDefaults::store(const QVariant &value, QLatin1StringView key)
{
    m_settings->setValue(key, value);
    m_settings->sync();
    emit didChange();
}
