// Plain geometric values read from the value texts of the files.
#pragma once

namespace tessaro {

struct PointValue {
    double x = 0;
    double y = 0;
    bool operator==(const PointValue&) const = default;
};

struct SizeValue {
    double width = 0;
    double height = 0;
    bool operator==(const SizeValue&) const = default;
};

/// A closed range lower...upper; 0...0 stands for "no range".
struct RangeValue {
    double lower = 0;
    double upper = 0;
    bool operator==(const RangeValue&) const = default;
};

} // namespace tessaro
