#pragma once

#include "platform/BundleFolders.h"
#include "platform/Workspace.h"

#include <QStringList>

/// The names of the web browsers to be had, each once, in the order of their characters' numbers: the
/// bundles in both folders that are named like one, the portable programs in the user's own, and those
/// registered with the desktop. What can't be read is left out.
QStringList installedBrowsers(const BundleFolders &folders,
                              const std::vector<RegisteredApplication> &registered);

// Their parts: what is in one folder, or registered, and how they are put together.

/// The names of the bundles in a folder that are named like a browser, as they come.
QStringList bundledBrowsers(const std::filesystem::path &folder);

/// The same with a name for each: of those that have the same one, the later ones get the name of their
/// entry behind it.
std::vector<RegisteredApplication> toldApart(const std::vector<RegisteredApplication> &applications);

/// Each name once, as it was first found, in the order of their characters' numbers.
QStringList uniqueAndSorted(const QStringList &names);

/// A program in a single file that was put into a folder for applications.
struct PortableProgram {
    QString name; ///< without its version
    std::filesystem::path file;
};
std::vector<PortableProgram> portableBrowsers(const std::filesystem::path &folder);

/// Whether two names are the same to a reader, however their characters are composed.
bool isSameName(const QString &one, const QString &other);
