#include "platform/Module.h"

#include <QtGlobal>

#include <cstring>

#include <dlfcn.h>

void *Module::found(const char *file, const char *name)
{
    // Never unloaded: the threads of a library may go on.
    void *library = ::dlopen(file, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    const auto *version =
        library ? static_cast<const char *>(::dlsym(library, "tarumineVersion")) : nullptr;
    if (version && std::strcmp(version, TARUMINE_VERSION) != 0) {
        qWarning("%s is of version %s, not of ours", file, version);
        return nullptr;
    }
    void *symbol = version ? ::dlsym(library, name) : nullptr;
    if (!symbol)
        qWarning("%s can't be used: %s", file, ::dlerror());
    return symbol;
}
