#pragma once

#include "view/State.h"

#include <QHash>
#include <QIcon>
#include <QImage>
#include <QSet>

/// The icons that programs bring along in files: read in the background, and shown as soon as they are
/// there.
class IconFiles : public QObject {
public:
    /// Null until the file has been read, and for one that makes no icon. Who follows it hears of it.
    QIcon icon(const QString &file);

private:
    State<QHash<QString, QIcon>> m_icons; // by file
    QSet<QString> m_asked;
};

/// The picture in a file, drawn to fit into a square of so many pixels. Null for what is no picture of its
/// own, but needs other files, and for one that would take long. For any thread.
QImage smallPicture(const QString &file, int side);
