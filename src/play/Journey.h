#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QStringView>

#include <array>

/// The rules of the journey board. Lengths are in points; a displacement is measured from where the
/// layout puts a button, and is positive to the right.
namespace Journey {

inline constexpr double boatWidth = 100;
inline constexpr double boatHeight = 40;
inline constexpr double boatStep = 50;
inline constexpr double leftLimit = 0;

inline constexpr QStringView sailing = u"船🛥";
inline constexpr QStringView anchoredRight = u"船🛥⚓️";
inline constexpr QStringView anchoredLeft = u"船⚓️🛥";

/// What the board remembers.
struct Board {
    double offset = leftLimit;              ///< displacement of the boat
    bool movingRight = true;                ///< direction of the next step
    QString movingStr = sailing.toString(); ///< the boat's label, which also tells whether it is anchored
    qint64 btnStatus = 0;                   ///< stage: 3, 2, 1 ashore; 0 and below afloat

    bool operator==(const Board &) const = default;
};

/// The places that a button leads to, in the order of their buttons.
enum class Destination {
    BuyFood,    // 食品購入
    BuyClothes, // 衣類購入
    Shop,       // お店
    OwnPlace,   // 居場所
    Disembark,  // 下船
    FujiPark,   // 冨士山公園
    Station,    // 駅
};
inline constexpr std::array destinations{
    Destination::BuyFood,   Destination::BuyClothes, Destination::Shop,   Destination::OwnPlace,
    Destination::Disembark, Destination::FujiPark,   Destination::Station};

/// The board after a press of the boat. The boat turns back at the right limit, which is the width of
/// the region less its own, and stays at the left one until a destination sends it off again.
Board boatPressed(Board board, double regionWidth);

/// The board after a press of a destination's button.
Board arrived(Destination destination, Board board);

bool isAnchored(QStringView movingStr);
bool isBoatShown(qint64 btnStatus);
bool isShown(Destination destination, qint64 btnStatus, QStringView movingStr);

/// Whether a destination's button goes along with the boat; it is shown while that is anchored.
bool isDisplaced(Destination destination);

/// The displacement of a destination's button while the boat's is `offset`.
double displacement(Destination destination, double offset);

} // namespace Journey
