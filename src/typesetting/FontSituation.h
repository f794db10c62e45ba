#pragma once

#include "typesetting/FontList.h"

#include <string_view>

/// Whether there is a font at all, and most of what the text shows can be drawn: otherwise its pages would
/// be full of boxes. Looks at samples from all over the text.
bool fontsSuffice(FontList &fonts, std::u16string_view text);
