#include "play/Journey.h"

namespace Journey {

namespace {

Board sentOff(Board board, qint64 stage)
{
    board.btnStatus = stage;
    board.offset = leftLimit;
    board.movingRight = true;
    board.movingStr = sailing.toString();
    return board;
}

} // namespace

Board boatPressed(Board board, double regionWidth)
{
    if (board.movingRight) {
        const double rightLimit = regionWidth - boatWidth;
        board.offset += boatStep;
        if (!(board.offset < rightLimit)) {
            board.offset = rightLimit;
            board.movingRight = false;
            board.movingStr = anchoredRight.toString();
        }
    } else {
        board.offset -= boatStep;
        board.movingStr = sailing.toString();
        if (!(board.offset > leftLimit)) {
            board.offset = leftLimit;
            board.movingStr = anchoredLeft.toString();
        }
    }
    return board;
}

Board arrived(Destination destination, Board board)
{
    switch (destination) {
    case Destination::BuyFood:
        board.btnStatus = 0;
        break;
    case Destination::BuyClothes:
        board.btnStatus = -1;
        break;
    case Destination::Shop:
        board.btnStatus = 1;
        break;
    case Destination::OwnPlace:
        board.btnStatus = 2;
        break;
    case Destination::Disembark:
        board.btnStatus = -2;
        break;
    case Destination::FujiPark:
        return sentOff(std::move(board), -3);
    case Destination::Station:
        return sentOff(std::move(board), -4);
    }
    return board;
}

bool isAnchored(QStringView movingStr)
{
    return movingStr == anchoredRight || movingStr == anchoredLeft;
}

bool isBoatShown(qint64 btnStatus)
{
    return btnStatus < 1;
}

bool isShown(Destination destination, qint64 btnStatus, QStringView movingStr)
{
    switch (destination) {
    case Destination::BuyFood:
    case Destination::BuyClothes:
        return btnStatus == 1;
    case Destination::Shop:
        return btnStatus == 2;
    case Destination::OwnPlace:
        return btnStatus == 3;
    default:
        return isDisplaced(destination) && isAnchored(movingStr);
    }
}

bool isDisplaced(Destination destination)
{
    return destination == Destination::Disembark || destination == Destination::FujiPark
        || destination == Destination::Station;
}

double displacement(Destination destination, double offset)
{
    switch (destination) {
    case Destination::Disembark:
        return offset;
    case Destination::FujiPark:
        return offset - 150;
    case Destination::Station:
        return offset - 300;
    default:
        return 0;
    }
}

} // namespace Journey
