#pragma once

class MainWindow;
class TarumineApp;

/// Gives a main window its menu bar.
void addMenus(MainWindow &window, TarumineApp &app);
