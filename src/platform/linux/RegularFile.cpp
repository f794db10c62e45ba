#include "platform/RegularFile.h"

#include "platform/FileName.h"
#include "platform/linux/OpenFile.h"

#include <unistd.h>

std::optional<QByteArray> readRegularFile(const std::filesystem::path &path, qint64 limit)
{
    const auto file = OpenFile::at(path.c_str(), limit);
    return file ? file->read(limit) : std::nullopt;
}

std::optional<QByteArray> readRegularFile(const QString &path, qint64 limit)
{
    return readRegularFile(std::filesystem::path(FileName::bytes(path)), limit);
}

bool isProgram(const std::filesystem::path &file)
{
    std::error_code error;
    return std::filesystem::is_regular_file(file, error) && ::access(file.c_str(), X_OK) == 0;
}
