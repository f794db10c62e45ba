#pragma once

#include "platform/BundleFolders.h"
#include "platform/Host.h"
#include "platform/Workspace.h"
#include "preferences/UserDefaults.h"
#include "printing/PrintOperation.h"
#include "view/OpenPanel.h"

#include <functional>

/// What a main window meets outside itself.
struct Surroundings {
    UserDefaults &defaults;
    Host &host;
    Workspace &workspace;
    std::function<OpenPanel *(QWidget *window)> newOpenPanel;
    std::function<PrintOperation *(PrintedText text, PrintInfo info, QWidget *window)> newPrintOperation;
    QString downloads; // the folder
    BundleFolders bundleFolders = BundleFolders::standard();

    /// The real ones: this user's store, this computer, this desktop.
    static Surroundings &standard();
};
