#include "RandomPosition.h"

namespace tessaro {

namespace {
PointValue& storedPosition()
{
    static PointValue position;
    return position;
}
} // namespace

PointValue lastRandomPosition()
{
    return storedPosition();
}

void setLastRandomPosition(PointValue position)
{
    storedPosition() = position;
}

} // namespace tessaro
