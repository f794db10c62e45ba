// A header of QPDF's holds vectors of a class that isn't complete yet. What clang makes of that in C++20 is
// an error, since it looks at once whether they could be destroyed at compile time; GCC doesn't. So this
// has vectors as they were before C++20. For what clang is to look at, and never for what is built to be
// used.
#include <algorithm>
#include <memory>
#include <string>
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR
#define __fill_a1 __fill_bits
#include <vector>
#undef __fill_a1
#undef _GLIBCXX20_CONSTEXPR
#define _GLIBCXX20_CONSTEXPR constexpr
