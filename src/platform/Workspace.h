#pragma once

#include <QString>

#include <filesystem>
#include <vector>

class QUrl;

/// An application that the desktop knows.
struct RegisteredApplication {
    QString name;                ///< in the user's language
    QString icon;                ///< a name in the icon theme, or a file; may be empty
    std::filesystem::path entry; ///< where it is registered

    bool operator==(const RegisteredApplication &) const = default;
};

/// The door to the programs outside this process. What is started there goes on when this process
/// ends, and has none of its open files; whether it worked is only known there.
///
/// All but `open` may take as long as the folder in which something stands, or the desktop's buses: these
/// may be asked on any thread, and not on the one of the windows.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens a page in the default browser, or a file with its default application; doesn't wait.
    virtual void open(const QUrl &url);

    /// Starts an application that is put there as a whole, as one program or a folder with a program
    /// in it; opens anything else with its default application.
    virtual bool openBundle(const std::filesystem::path &bundle);

    /// The file of the icon that a bundle brings along; empty when it has none.
    virtual QString icon(const std::filesystem::path &bundle) const;

    /// The web browsers registered with the desktop.
    virtual std::vector<RegisteredApplication> webBrowsers() const;

    /// Whether the application is still registered.
    virtual bool isRegistered(const RegisteredApplication &application) const;

    /// False when the application is registered no longer; nothing is started then.
    virtual bool start(const RegisteredApplication &application);
};
