#pragma once

#include <QLatin1StringView>

// Every key that is kept between runs: what it holds, and who writes and reads it. An absent integer
// reads as 0. No key is ever removed.
namespace Key {

inline constexpr QLatin1StringView StringKeyPX5("StringKeyPX5"); ///< string; behind ContentView::uString

// Integers, 1 = on and 0 = off; written by the settings window.
inline constexpr QLatin1StringView IntKeyToggle1("IntKeyToggle1"); ///< which file type is loaded
inline constexpr QLatin1StringView IntKeyToggle2("IntKeyToggle2"); ///< seeds ContentView::sp2
inline constexpr QLatin1StringView IntKeyToggle3("IntKeyToggle3");
inline constexpr QLatin1StringView IntKeyToggle4("IntKeyToggle4");
inline constexpr QLatin1StringView IntKeyToggle5("IntKeyToggle5");
inline constexpr QLatin1StringView IntKeyToggle6("IntKeyToggle6");
inline constexpr QLatin1StringView IntKeyToggle7("IntKeyToggle7");
inline constexpr QLatin1StringView IntKeyToggle8("IntKeyToggle8");
inline constexpr QLatin1StringView IntKeyToggle9("IntKeyToggle9");

// Written by the event buttons; only CatPX5 is read again, as the first stage of a new window.
inline constexpr QLatin1StringView CatPX5("CatPX5");   ///< integer: 3
inline constexpr QLatin1StringView BirdPX5("BirdPX5"); ///< integer: 3
inline constexpr QLatin1StringView CarPX5("CarPX5");   ///< string: 🚙
inline constexpr QLatin1StringView BagPX5("BagPX5");   ///< string: 🛍
inline constexpr QLatin1StringView FirmPX5("FirmPX5"); ///< string: 種子

} // namespace Key
