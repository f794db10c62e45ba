#pragma once

#include <QObject>
#include <QString>

#include <memory>
#include <optional>

class QSettings;

/// The preferences store of one user: integers and strings under the keys of PreferenceKeys.h.
///
/// A value is on disk when its setter returns: the file is replaced as a whole, so a killed process
/// leaves the old value or the new one. Where the file can't be written, values live as long as the
/// process. A file that can't be parsed is moved aside, and the store starts empty.
class UserDefaults : public QObject {
    Q_OBJECT

public:
    /// The store of the person who runs the application, where the desktop keeps such files.
    static UserDefaults &standard();

    explicit UserDefaults(const QString &fileName);
    ~UserDefaults() override;

    /// 0 when absent; a string reads as the whole number that it begins with, or 0.
    qint64 integer(QLatin1StringView key) const;
    std::optional<QString> string(QLatin1StringView key) const;

    void setInteger(qint64 value, QLatin1StringView key);
    void setString(const QString &value, QLatin1StringView key);

    QString fileName() const;

signals:
    /// Some key may have a new value (one of ours, or one that another process wrote meanwhile).
    void didChange();

private:
    void store(const QVariant &value, QLatin1StringView key);

    std::unique_ptr<QSettings> m_settings;
};
