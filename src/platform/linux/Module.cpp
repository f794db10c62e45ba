#include "platform/Module.h"

#include <QtGlobal>

#include <dlfcn.h>

void *Module::found(const char *file, const char *name)
{
    // Never unloaded: the threads of a library may go on.
    void *library = ::dlopen(file, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    void *symbol = library ? ::dlsym(library, name) : nullptr;
    if (!symbol)
        qWarning("%s can't be used: %s", file, ::dlerror());
    return symbol;
}
