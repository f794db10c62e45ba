#pragma once

#include "preferences/StoreFile.h"

#include <QByteArray>
#include <QMap>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <optional>

class QFileSystemWatcher;

/// The preferences store of one user: integers and strings under the keys of PreferenceKeys.h, shared by
/// all processes of the application.
///
/// A value is on disk when its setter returns: the file is replaced as a whole, so a killed process
/// leaves the old value or the new one. Where the file can't be written just now, a value is kept here, and
/// written as soon as that can be done. A file that can't be parsed is moved aside, and the store starts
/// empty.
class UserDefaults : public QObject {
    Q_OBJECT

public:
    /// The store of the person who runs the application, where the desktop keeps such files.
    static UserDefaults &standard();

    explicit UserDefaults(const QString &fileName);
    ~UserDefaults() override;

    // What is stored now, by whichever process.
    /// 0 when absent; a string reads as the whole number that it begins with, or 0.
    qint64 integer(QLatin1StringView key) const;
    std::optional<QString> string(QLatin1StringView key) const;

    void setInteger(qint64 value, QLatin1StringView key);
    void setString(const QString &value, QLatin1StringView key);

    /// From now on, tells when another process writes, as far as the system tells us.
    void watch();

    QString fileName() const { return m_file.name(); }

signals:
    /// Some key may have a new value (one of ours, or one that another process wrote meanwhile).
    void didChange() const;

private:
    void refresh() const;
    bool write(std::chrono::milliseconds patience);
    void keepTrying();

    mutable StoreFile m_file;
    QMap<QByteArray, QString> m_unwritten; // by their keys in Latin-1
    QTimer m_nextTry;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
};
