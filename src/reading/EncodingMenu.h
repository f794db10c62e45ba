#pragma once

class QMenu;
class TextLoading;

/// The encodings in which the file that was loaded can be read again, the program's own guess first. Chosen
/// is the one in which it was read; nothing is remembered for the next file.
void fillEncodingMenu(QMenu &menu, TextLoading &loading);
