#pragma once

#include "platform/BundleFolders.h"
#include "platform/Workspace.h"
#include "view/State.h"

#include <QHash>
#include <QStringList>

/// Finds the browsers that a window offers, and starts the one chosen there.
class BrowserChoice : public QObject {
public:
    BrowserChoice(State<QStringList> &browsers, State<QString> &selectedBrowser, Workspace &workspace,
                  BundleFolders folders);

    /// Looks for the browsers in the background, then offers them with the first one chosen. Where
    /// that has been asked several times, the last time counts.
    void refill();

    /// Starts the chosen one: the bundle of that name, else the application registered under it, else
    /// a portable program. Prints a line when there is none.
    void launch();

    /// The icon of a browser, its bundle's own or as the desktop knows it; may be empty.
    QString icon(const QString &browser) const;

private:
    struct Found {
        QStringList names;
        std::vector<RegisteredApplication> registered;
        QHash<QString, QString> bundleIcons; ///< by name
    };
    static Found look(const BundleFolders &folders, const Workspace &workspace);
    void offer(const Found &found);
    bool openBundle();
    bool startRegistered();
    bool openPortable();

    State<QStringList> &m_browsers;
    State<QString> &m_selectedBrowser;
    Workspace &m_workspace;
    BundleFolders m_folders;
    Found m_found;
    int m_refills = 0;
};
