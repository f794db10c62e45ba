#include "platform/BundleFolders.h"

#include "platform/linux/Account.h"

#include <cstdlib>
#include <string>

namespace {

std::string homeFolder()
{
    const char *home = std::getenv("HOME");
    return home && *home ? home : Account::own().home;
}

} // namespace

BundleFolders BundleFolders::standard()
{
    return {.system = "/Applications", .own = homeFolder() + "/Applications"};
}
