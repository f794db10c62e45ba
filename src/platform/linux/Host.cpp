#include "platform/Host.h"

#include "platform/linux/Account.h"

#include <QFile>
#include <QSysInfo>

QString Host::name() const
{
    return QSysInfo::machineHostName();
}

QString Host::userName() const
{
    const std::string name = Account::own().name;
    return name.empty() ? qEnvironmentVariable("LOGNAME", qEnvironmentVariable("USER"))
                        : QFile::decodeName(name.c_str());
}
