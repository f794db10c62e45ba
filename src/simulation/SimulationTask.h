#pragma once

#include "platform/StandardOutput.h"

#include <QString>

#include <functional>

class QObject;

/// Starts a run of the simulation on a background thread and returns at once. `setText` is called on
/// this thread: now, to say that a run is under way, and when the run has ended. Nothing is said any
/// more once `owner`, which lives on this thread, is gone; the run itself goes on to its end.
void startSimulation(QObject *owner, std::function<void(const QString &)> setText,
                     StandardOutput &output = StandardOutput::standard());
