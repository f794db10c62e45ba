#include "platform/linux/Bundle.h"

#include "platform/FileName.h"
#include "platform/RegularFile.h"

#include <QFile>
#include <QXmlStreamReader>

using std::filesystem::path;
using namespace Qt::StringLiterals;

namespace {

bool isPlainName(const std::string &name)
{
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

std::string bundleName(const path &bundle)
{
    const std::string name = bundle.filename().string();
    return name.ends_with(".app") ? name.substr(0, name.size() - 4) : name;
}

// The program's name as the bundle's own description gives it.
std::string describedExecutable(const path &bundle)
{
    constexpr qint64 largest = 1 << 20;
    const auto description = readRegularFile(bundle / "Contents/Info.plist", largest);
    QXmlStreamReader reader(description.value_or(QByteArray()));
    while (reader.readNextStartElement() || !reader.atEnd()) {
        if (reader.isStartElement() && reader.name() == "key"_L1
            && reader.readElementText() == "CFBundleExecutable"_L1 && reader.readNextStartElement())
            return FileName::bytes(reader.readElementText());
    }
    return {};
}

// Small enough to be shown without anybody waiting for it.
bool isIcon(const path &file)
{
    constexpr uintmax_t largest = 256 << 10;
    std::error_code error;
    return std::filesystem::is_regular_file(file, error)
        && std::filesystem::file_size(file, error) <= largest;
}

} // namespace

std::optional<path> programOf(const path &bundle)
{
    if (isProgram(bundle))
        return bundle;
    const std::string name = bundleName(bundle);
    const std::string described = describedExecutable(bundle);
    const path contents = bundle / "Contents/MacOS";
    for (const path &candidate :
         {bundle / "AppRun", bundle / name, contents / (isPlainName(described) ? described : name)}) {
        if (isProgram(candidate))
            return candidate;
    }
    return std::nullopt;
}

std::optional<path> iconOf(const path &bundle)
{
    if (isIcon(bundle / ".DirIcon"))
        return bundle / ".DirIcon";
    std::optional<path> first;
    std::error_code error;
    std::filesystem::directory_iterator entries(bundle, error);
    for (; !error && entries != std::filesystem::directory_iterator(); entries.increment(error)) {
        const path &file = entries->path();
        const bool isPicture = file.extension() == ".png" || file.extension() == ".svg";
        if (isPicture && isIcon(file) && (!first || file < *first))
            first = file;
    }
    return first;
}
