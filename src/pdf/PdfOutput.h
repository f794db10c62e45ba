#pragma once

#include <cstddef>
#include <functional>

/// Takes the next bytes of a file; false when that fails, which ends the work.
using PdfOutput = std::function<bool(const char *bytes, std::size_t count)>;
