#pragma once

#include <QString>
#include <QUrl>

#include <optional>

/// Where the application keeps what it ships with.
namespace ApplicationFolders {

/// The file `name`.`extension` that was installed, or built, with the application.
std::optional<QUrl> resource(const QString &name, const QString &extension);

} // namespace ApplicationFolders
