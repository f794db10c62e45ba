// Part of each module: the version that it belongs to. See Module::found.

extern "C" const char tarumineVersion[];
const char tarumineVersion[] = TARUMINE_VERSION;
