#pragma once

/// A library of our own that is too much for every start: it is loaded when it is first asked for, and
/// stays. The programs know the path where theirs lies, and take no other.
namespace Module {

/// What the library `file` exports under `name`; null, with a word to who reads the log, when there is no
/// such thing, or the library is not of this version.
void *found(const char *file, const char *name);

} // namespace Module
