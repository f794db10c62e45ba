#include "platform/ApplicationFolders.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace ApplicationFolders {

std::optional<QUrl> resource(const QString &name, const QString &extension)
{
    const QString file = name + u'.' + extension;
    const QString program = QCoreApplication::applicationDirPath();
    for (const QString &folder : {program + QStringLiteral("/../share/tarumine"), program}) {
        const QFileInfo candidate(folder + u'/' + file);
        if (candidate.isFile())
            return QUrl::fromLocalFile(candidate.canonicalFilePath());
    }
    return std::nullopt;
}

} // namespace ApplicationFolders
