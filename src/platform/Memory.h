#pragma once

#include <QtGlobal>

/// How many bytes this process can still take before somebody ends it: what the machine has to spare, or
/// less where the process or its group may not have as much. A measure of the moment, and no promise.
qint64 availableMemory();

/// Whether so many bytes can be had, and enough is left for everything else that goes on.
bool isThereRoomFor(qint64 bytes);
