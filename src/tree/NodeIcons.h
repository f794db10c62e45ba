#pragma once

#include <QIcon>

/// The icons of the desktop's theme, or drawings of our own where it has none.
QIcon folderIcon();
QIcon documentIcon();
