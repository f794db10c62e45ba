#pragma once

#include <QString>

/// What a new window's reading pane says.
QString openingMessage();
