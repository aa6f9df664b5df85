#include "RandomDraw.h"

#include <tessaro/model/ValueText.h>

#include <random>

namespace tessaro {

namespace {

std::mt19937_64& generator()
{
    static std::mt19937_64 engine{std::random_device{}()};
    return engine;
}

} // namespace

double drawFromRange(const std::optional<std::string>& rangeText)
{
    if (!rangeText)
        return 0;
    const RangeValue range = rangeFromText(*rangeText);
    const double r = double(generator()() >> 11); // 53 bits
    return range.lower + (range.upper - range.lower) * r / 9007199254740992.0; // 2^53
}

int randomIndex(int count)
{
    return int(std::uniform_int_distribution<int>(0, count - 1)(generator()));
}

} // namespace tessaro
