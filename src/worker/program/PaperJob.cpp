#include "decoding/BothAtOnce.h"
#include "typesetting/FontFolders.h"
#include "worker/program/Job.h"

#include <ctime>
#include <stdexcept>

#include <dlfcn.h>

using namespace Protocol;

namespace {

Report (*paperWork)(const Handed &handed) = nullptr;

// What makes the pages takes about as long to load as it takes to read how fonts are configured.
bool loadWork()
{
    void *module = ::dlopen(TARUMINE_PAPER_WORK, RTLD_NOW);
    paperWork = module ? reinterpret_cast<decltype(paperWork)>(::dlsym(module, "paperWork")) : nullptr;
    return paperWork;
}

std::vector<std::string> prepare()
{
    ::tzset(); // the date of the document is that of the place
    return bothAtOnce(loadWork, fontFolders).second;
}

Report work(const Handed &handed)
{
    if (!paperWork)
        throw std::runtime_error("there is nothing that makes pages");
    openFontFolders();
    return paperWork(handed);
}

} // namespace

extern "C" [[gnu::visibility("default")]] const JobModule job{prepare, work};
