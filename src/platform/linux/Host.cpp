#include "platform/Host.h"

#include <QByteArray>
#include <QFile>
#include <QSysInfo>

#include <vector>

#include <pwd.h>
#include <unistd.h>

QString Host::name() const
{
    return QSysInfo::machineHostName();
}

QString Host::userName() const
{
    std::vector<char> room(size_t(16) << 10);
    passwd entry{};
    passwd *found = nullptr;
    if (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) == 0 && found)
        return QFile::decodeName(found->pw_name);
    return qEnvironmentVariable("LOGNAME", qEnvironmentVariable("USER"));
}
