#include "main_window/Surroundings.h"

Surroundings &Surroundings::standard()
{
    static Host host;
    static Workspace workspace;
    static Surroundings real{UserDefaults::standard(), host, workspace, ::newOpenPanel,
                             BundleFolders::standard()};
    return real;
}
