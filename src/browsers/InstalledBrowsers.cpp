#include "browsers/InstalledBrowsers.h"

#include "platform/FileName.h"
#include "platform/RegularFile.h"

#include <QMultiHash>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <array>

using std::filesystem::path;
using namespace Qt::StringLiterals;

namespace {

constexpr std::array candidates{"Safari"_L1, "Chrome"_L1, "Firefox"_L1, "Edge"_L1,
                                "Opera"_L1,  "Brave"_L1,  "Vivaldi"_L1, "Arc"_L1};

bool namesBrowser(const QString &name)
{
    return std::any_of(candidates.begin(), candidates.end(), [&name](QLatin1StringView candidate) {
        return name.contains(candidate, Qt::CaseInsensitive);
    });
}

// Whatever stands in a folder: dangling links and hidden names, too.
template <class Visit> void forEachEntry(const path &folder, Visit visit)
{
    std::error_code error;
    std::filesystem::directory_iterator entries(folder, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error))
        visit(entries->path());
}

QString withoutVersion(const QString &name)
{
    static const QRegularExpression tail(
        u"(?<=.)[-_ .]+(v?[0-9]|(x86[-_]64|amd64|i[36]86|aarch64|arm64|armhf)(?![A-Za-z0-9])).*$"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return QString(name).remove(tail);
}

struct SortableName {
    QString composed;
    QString asFound;
};

// Surrogates stand for the highest numbers, but are not the highest units of UTF-16.
char16_t rank(QChar unit)
{
    if (unit.isSurrogate())
        return char16_t(unit.unicode() + 0x2000);
    return unit.unicode() >= 0xe000 ? char16_t(unit.unicode() - 0x800) : unit.unicode();
}

bool comesBefore(const SortableName &one, const SortableName &other)
{
    return std::lexicographical_compare(one.composed.begin(), one.composed.end(), other.composed.begin(),
                                        other.composed.end(),
                                        [](QChar a, QChar b) { return rank(a) < rank(b); });
}

QString composed(const QString &name)
{
    return name.normalized(QString::NormalizationForm_C);
}

// A registry may be reached in two ways.
bool areOne(const path &entry, const path &other)
{
    std::error_code error;
    return entry == other || std::filesystem::equivalent(entry, other, error);
}

} // namespace

QStringList installedBrowsers(const BundleFolders &folders,
                              const std::vector<RegisteredApplication> &registered)
{
    QStringList found = bundledBrowsers(folders.system) + bundledBrowsers(folders.own);
    for (const PortableProgram &program : portableBrowsers(folders.own))
        found += program.name;
    for (const RegisteredApplication &application : registered)
        found += application.name;
    return uniqueAndSorted(found);
}

QStringList bundledBrowsers(const path &folder)
{
    QStringList found;
    forEachEntry(folder, [&found](const path &entry) {
        const std::string file = entry.filename().string();
        if (!file.ends_with(".app"))
            return;
        const QString name = FileName::text(file).remove(".app"_L1);
        if (namesBrowser(name))
            found += name;
    });
    return found;
}

std::vector<RegisteredApplication> toldApart(const std::vector<RegisteredApplication> &applications)
{
    QMultiHash<QString, path> entries; // by their own name
    QSet<QString> taken;
    std::vector<RegisteredApplication> result;
    for (RegisteredApplication application : applications) {
        const QString name = application.name;
        const QList<path> ofTheName = entries.values(composed(name));
        const auto isThis = [&](const path &other) { return areOne(other, application.entry); };
        if (std::any_of(ofTheName.begin(), ofTheName.end(), isThis))
            continue;
        entries.insert(composed(name), application.entry);
        for (const path &addition : {application.entry.stem(), application.entry}) {
            if (taken.contains(composed(application.name)))
                application.name = name + u" ("_s + FileName::text(addition.string()) + u')';
        }
        taken.insert(composed(application.name));
        result.push_back(std::move(application));
    }
    return result;
}

QStringList uniqueAndSorted(const QStringList &names)
{
    std::vector<SortableName> sorted;
    for (const QString &name : names)
        sorted.push_back({composed(name), name});
    std::stable_sort(sorted.begin(), sorted.end(), comesBefore);
    const auto end = std::unique(sorted.begin(), sorted.end(), [](const auto &one, const auto &other) {
        return one.composed == other.composed;
    });
    QStringList result;
    std::for_each(sorted.begin(), end, [&result](const SortableName &name) { result += name.asFound; });
    return result;
}

std::vector<PortableProgram> portableBrowsers(const path &folder)
{
    constexpr std::string_view ending = ".AppImage";
    std::vector<PortableProgram> found;
    forEachEntry(folder, [&found, ending](const path &entry) {
        const std::string file = entry.filename().string();
        if (!file.ends_with(ending))
            return;
        const QString name = withoutVersion(FileName::text(file.substr(0, file.size() - ending.size())));
        if (namesBrowser(name) && isProgram(entry))
            found.push_back({name, entry});
    });
    return found;
}

bool isSameName(const QString &one, const QString &other)
{
    return composed(one) == composed(other);
}
