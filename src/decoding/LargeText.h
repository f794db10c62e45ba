#pragma once

#include <QtGlobal>

#include <limits>

/// From which size on a text is treated with more care, because a person would notice.
namespace LargeText {

/// A file of more bytes isn't copied, and two threads look at its halves; up to here, a text is decoded
/// before the next frame is due.
inline constexpr qsizetype bytes = 1 << 20;

/// More characters take so long to give back that another thread does it.
inline constexpr qsizetype charactersToGiveBack = 4 << 20;

/// More characters take so long to collect from a document that a copy is kept beside it, and so much
/// memory that few are kept for who takes a step back.
inline constexpr qsizetype charactersToCollect = 16 << 20;

/// The most that is taken for a text: positions in a document are ints, and the last one is past the end.
inline constexpr qsizetype mostCharacters = std::numeric_limits<int>::max() - 1;
inline constexpr qint64 mostBytes = qint64(1) << 29;

} // namespace LargeText
