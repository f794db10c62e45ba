#pragma once

#include <string>
#include <vector>

/// Reads how fonts are configured, but none of them: for a process that is to be confined before it looks
/// at one. The folders, and what links in them lead to, where they are, and what is known about them.
std::vector<std::string> fontFolders();

/// Has the fonts in these folders used from now on.
void openFontFolders();
