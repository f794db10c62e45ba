#include "main_window/Surroundings.h"

#include <QStandardPaths>

Surroundings &Surroundings::standard()
{
    static Host host;
    static Workspace workspace;
    static Surroundings real{UserDefaults::standard(),
                             host,
                             workspace,
                             ::newOpenPanel,
                             ::newPrintOperation,
                             QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
                             BundleFolders::standard()};
    return real;
}
