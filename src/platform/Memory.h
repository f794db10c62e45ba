#pragma once

#include <QtGlobal>

#include <string>

/// How many bytes this process can still take before somebody ends it: what the machine has to spare, or
/// less where the process or a group that it is in may not have as much. A measure of the moment, and no
/// promise. `root` is the folder in which the system tells about itself.
qint64 availableMemory(const std::string &root = {});

/// Whether so many bytes can be had, and enough is left for everything else that goes on.
bool isThereRoomFor(qint64 bytes);
