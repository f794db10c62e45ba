#include "platform/Workspace.h"

#include "platform/FileName.h"
#include "platform/Workers.h"
#include "platform/linux/Bundle.h"
#include "platform/linux/DesktopEntries.h"
#include "platform/linux/DetachedProgram.h"

#include <QUrl>

namespace {

bool openByDefault(const QByteArray &url)
{
    return startDetached({"xdg-open", url.toStdString()});
}

// Made by hand: a QUrl has no place for the bytes of a name that are no UTF-8.
QByteArray fileUrl(const std::filesystem::path &file)
{
    return "file://" + QByteArray::fromStdString(file.string()).toPercentEncoding("/");
}

} // namespace

void Workspace::open(const QUrl &url)
{
    if (url.isValid())
        Workers::waiting().start([url = url.toEncoded()] { openByDefault(url); });
}

bool Workspace::openBundle(const std::filesystem::path &bundle)
{
    const auto program = programOf(bundle);
    return program ? startDetached({program->string()}) : openByDefault(fileUrl(bundle));
}

QString Workspace::icon(const std::filesystem::path &bundle) const
{
    const auto file = iconOf(bundle);
    return file ? FileName::text(file->string()) : QString();
}

std::vector<RegisteredApplication> Workspace::webBrowsers() const
{
    return DesktopEntries::webBrowsers(DesktopEntries::folders());
}

bool Workspace::isRegistered(const RegisteredApplication &application) const
{
    return DesktopEntries::isThere(application.entry);
}

bool Workspace::start(const RegisteredApplication &application)
{
    return DesktopEntries::start(application.entry);
}
