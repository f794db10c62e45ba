#include "platform/Workspace.h"

#include <QProcess>
#include <QUrl>

bool Workspace::open(const QUrl &url)
{
    if (!url.isValid())
        return false;
    // Started by hand rather than by the toolkit, which would hand our standard output on.
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({url.toString(QUrl::FullyEncoded)});
    opener.setStandardInputFile(QProcess::nullDevice());
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    return opener.startDetached();
}
