#pragma once

#include <QByteArray>
#include <QLatin1StringView>
#include <QList>
#include <QString>

#include <optional>

/// The text of an ini file of the kind that QSettings writes. Values are those of the keys without a group;
/// whatever else stands in the text stays as it is.
///
/// QSettings itself can't be had without its file: it waits for the lock of that as long as it takes, and
/// tells files apart by their age and size. Given a copy of its own, it costs each write one more wait for
/// the disk.
class IniText {
public:
    /// Nothing when a line is neither a group, nor a key with its value, nor a remark.
    static std::optional<IniText> parsed(const QByteArray &text);

    /// Nothing when the key is absent, or what stands there is no text but a list, say.
    std::optional<QString> value(QLatin1StringView key) const;
    void setValue(const QString &value, QLatin1StringView key);

    QByteArray bytes() const;

private:
    struct Line {
        QByteArray text;
        QByteArray key = {};   // empty where there is none, or it is in a group
        QByteArray value = {}; // as it stands there
    };
    QList<Line> m_lines;
};
