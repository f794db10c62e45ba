#include "browsers/BrowserChoice.h"

#include "browsers/InstalledBrowsers.h"
#include "platform/FileName.h"
#include "platform/StandardOutput.h"

#include <algorithm>

using std::filesystem::path;

namespace {

// What an application calls itself may be anything; only the name of a file is one in the folder.
bool isNameOfFile(const QString &name)
{
    return !name.contains(u'/') && !name.contains(QChar(u'\0'));
}

std::optional<path> bundleNamed(const QString &name, const path &folder)
{
    const path bundle = folder.string() + '/' + FileName::bytes(name) + ".app";
    std::error_code error;
    return isNameOfFile(name) && std::filesystem::exists(bundle, error) ? std::optional(bundle)
                                                                        : std::nullopt;
}

std::optional<path> portableNamed(const QString &name, const path &folder)
{
    for (const PortableProgram &program : portableBrowsers(folder)) {
        if (isSameName(program.name, name))
            return program.file;
    }
    return std::nullopt;
}

} // namespace

// What the places answer when a browser is to be started.
struct BrowserChoice::Launch {
    struct OfFolder {
        std::optional<path> bundle, portable;
    };
    std::optional<path> ofSystem;
    OfFolder own;
    std::optional<RegisteredApplication> registered;
    int awaited = 3;
};

BrowserChoice::BrowserChoice(State<QStringList> &browsers, State<QString> &selectedBrowser,
                             Workspace &workspace, BundleFolders folders)
    : m_browsers(browsers)
    , m_selectedBrowser(selectedBrowser)
    , m_workspace(workspace)
    , m_folders(std::move(folders))
{
    const auto bundles = [&workspace](const path &folder) {
        Offer offer{.names = bundledBrowsers(folder)};
        for (const QString &name : std::as_const(offer.names)) {
            if (const auto bundle = bundleNamed(name, folder))
                offer.icons.insert(name, workspace.icon(*bundle));
        }
        return offer;
    };
    m_system.look = [bundles, folder = m_folders.system] { return bundles(folder); };
    m_own.look = [bundles, folder = m_folders.own] {
        Offer offer = bundles(folder);
        for (const PortableProgram &program : portableBrowsers(folder))
            offer.names += program.name;
        return offer;
    };
    m_registry.look = [&workspace] {
        Offer offer{.registered = toldApart(workspace.webBrowsers())};
        for (const RegisteredApplication &application : offer.registered)
            offer.names += application.name;
        return offer;
    };
}

void BrowserChoice::refill()
{
    for (Place *place : m_places)
        place->isAwaited = true;
    for (Place *place : m_places)
        look(*place);
}

void BrowserChoice::look(Place &place)
{
    if (place.respondent.isSilent())
        return take(place, {}); // the answer that is outstanding will do
    const auto ofLatest = [this, &place, thisLook = ++place.looks](const Offer &offer) {
        if (thisLook == place.looks)
            take(place, offer);
    };
    place.respondent.ask(this, place.look, ofLatest, ofLatest);
}

void BrowserChoice::take(Place &place, const Offer &offer)
{
    const bool isLate = !std::exchange(place.isAwaited, false);
    place.offer = offer;
    if (isLooking())
        return;
    show(isLate);
    while (m_waitingLaunches > 0) {
        --m_waitingLaunches;
        launch(m_selectedBrowser);
    }
}

void BrowserChoice::show(bool keepsChoice)
{
    QStringList names;
    for (const Place *place : m_places)
        names += place->offer.names;
    const QString choice = m_selectedBrowser;
    m_browsers = uniqueAndSorted(names);
    if (!keepsChoice || !m_browsers.value().contains(choice))
        m_selectedBrowser = m_browsers.value().value(0);
}

bool BrowserChoice::isLooking() const
{
    return std::any_of(m_places.begin(), m_places.end(),
                       [](const Place *place) { return place->isAwaited; });
}

void BrowserChoice::launch()
{
    if (isLooking())
        ++m_waitingLaunches;
    else
        launch(m_selectedBrowser);
}

// All are asked at once; what they answer counts in its order.
void BrowserChoice::launch(const QString &browser)
{
    const auto launch = std::make_shared<Launch>();
    const auto into = [this, launch](auto &answer) {
        return [this, launch, &answer](const auto &given) {
            answer = given;
            if (--launch->awaited == 0)
                start(*launch);
        };
    };
    m_system.respondent.ask(
        this, [=, folder = m_folders.system] { return bundleNamed(browser, folder); },
        into(launch->ofSystem));
    m_own.respondent.ask(
        this,
        [=, folder = m_folders.own] {
            return Launch::OfFolder{bundleNamed(browser, folder), portableNamed(browser, folder)};
        },
        into(launch->own));
    m_registry.respondent.ask(
        this,
        [application = registeredAs(browser), &workspace = m_workspace] {
            return application && workspace.isRegistered(*application) ? application : std::nullopt;
        },
        into(launch->registered));
}

void BrowserChoice::start(const Launch &launch)
{
    std::function<bool()> start;
    const auto open = [this](const path &bundle) {
        return [&workspace = m_workspace, bundle] { return workspace.openBundle(bundle); };
    };
    if (launch.ofSystem || launch.own.bundle)
        start = open(launch.ofSystem ? *launch.ofSystem : *launch.own.bundle);
    else if (launch.registered)
        start = [&workspace = m_workspace, it = *launch.registered] { return workspace.start(it); };
    else if (launch.own.portable)
        start = open(*launch.own.portable);
    else
        return StandardOutput::standard().post("Microsoft Edge が見つかりませんでした\n");
    inBackground(
        this, start, [](bool) {}, Workers::waiting()); // what comes of it is nobody's concern
}

std::optional<RegisteredApplication> BrowserChoice::registeredAs(const QString &browser) const
{
    for (const RegisteredApplication &application : m_registry.offer.registered) {
        if (isSameName(application.name, browser))
            return application;
    }
    return std::nullopt;
}

QString BrowserChoice::icon(const QString &browser) const
{
    for (const Place *place : {&m_system, &m_own}) {
        if (QString icon = place->offer.icons.value(browser); !icon.isEmpty())
            return icon;
    }
    const auto application = registeredAs(browser);
    return application ? application->icon : QString();
}
