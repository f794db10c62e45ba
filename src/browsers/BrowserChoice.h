#pragma once

#include "platform/BundleFolders.h"
#include "platform/Respondent.h"
#include "platform/Workspace.h"
#include "view/State.h"

#include <QHash>
#include <QStringList>

#include <array>
#include <optional>

/// Finds the browsers that a window offers, and starts the one chosen there. Never waits itself: whatever
/// has a part in it is asked in the background, and done without when it doesn't answer.
class BrowserChoice : public QObject {
public:
    BrowserChoice(State<QStringList> &browsers, State<QString> &selectedBrowser, Workspace &workspace,
                  BundleFolders folders);

    /// Looks for the browsers, then offers them with the first one chosen. Where that has been asked
    /// several times, the last time counts. What is found late is offered, too, without another choice.
    void refill();

    /// Starts the chosen one, when the browsers have been looked for: the bundle of that name, else the
    /// application registered under it, else a portable program. Prints a line when there is none.
    void launch();

    /// The icon of a browser, its bundle's own or as the desktop knows it; may be empty.
    QString icon(const QString &browser) const;

private:
    struct Offer {
        QStringList names;
        QHash<QString, QString> icons; ///< by name
        std::vector<RegisteredApplication> registered;
    };
    /// Where browsers are found.
    struct Place {
        Respondent respondent;
        std::function<Offer()> look;
        Offer offer;
        int looks = 0;
        bool isAwaited = true; // until it has been looked at for the first time
    };
    struct Launch;

    void look(Place &place);
    void take(Place &place, const Offer &offer);
    void show(bool keepsChoice);
    bool isLooking() const;
    void launch(const QString &browser);
    void start(const Launch &launch);
    std::optional<RegisteredApplication> registeredAs(const QString &browser) const;

    State<QStringList> &m_browsers;
    State<QString> &m_selectedBrowser;
    Workspace &m_workspace;
    BundleFolders m_folders;
    Place m_system, m_own, m_registry;
    const std::array<Place *, 3> m_places{&m_system, &m_own, &m_registry};
    int m_waitingLaunches = 0;
};
