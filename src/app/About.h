#pragma once

class QWidget;

/// Says which version this is, under which licence it may be used, and what it is made with.
void showAbout(QWidget *window);
