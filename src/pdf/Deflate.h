#pragma once

#include <string>
#include <string_view>

/// The bytes in the zlib format that a PDF's FlateDecode takes.
std::string deflated(std::string_view bytes);
