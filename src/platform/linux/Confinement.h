#pragma once

#include <climits>
#include <string>
#include <vector>

/// How far a process has been confined.
struct Confinement {
    int landlock = 0;         ///< the version of Landlock whose rights it has lost; 0: the kernel has none
    bool systemCalls = false; ///< whether all but a few system calls are refused
};

/// Takes from this process, for good, what work on somebody else's bytes doesn't need. It keeps its memory,
/// its threads and its open files, and reading beneath these folders; everything else is refused with an
/// error. To be called before there are threads. What the kernel doesn't offer is left out.
/// `newestLandlock`: to be like an older kernel.
Confinement confine(const std::vector<std::string> &readable, int newestLandlock = INT_MAX);
