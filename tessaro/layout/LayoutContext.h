// What a level is laid out with besides its own records: the view, the
// device whose entries count, the catalogues and the pixel sizes of images.
// The canvas and the game each fill one from their own state, so the layout
// itself reads no globals.
#pragma once

#include <tessaro/model/DeviceLookup.h>
#include <tessaro/model/Enumerations.h>
#include <tessaro/model/Geometry.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tessaro {
struct Character;
struct GenericObject;
struct Obstacle;
} // namespace tessaro

namespace tessaro::layout {

/// The view of the scene in level points, y up: the ground starts at its
/// left edge and stands on its bottom edge.
struct ViewFrame {
    double left = -437;
    double bottom = -201;
    double width = 874;
    double height = 402;
    double centreY() const { return bottom + height / 2; }
};

struct LayoutContext {
    ViewFrame view;
    /// The devices whose entries count and the last random position; the
    /// editor's chooses no device, so the default entries count.
    DeviceChoice devices;
    const std::vector<Obstacle>* obstacles = nullptr;
    const std::vector<Character>* characters = nullptr;
    const std::vector<GenericObject>* objects = nullptr;
    /// The size in points of the image `name` of `kind` as drawn at its own
    /// size; (0,0) when it has none.
    std::function<SizeValue(sceneObjectType kind, const std::string& name)> imageSize;

    /// The value of field `F` for the chosen devices: the primary device's
    /// entry when it has the field, else the secondary's, else the default
    /// entry's; (0,0) when none has it.
    template <fieldList F>
    typename DeviceFieldType<F>::type deviceValue(const std::optional<std::vector<DeviceProperties>>& list) const
    {
        return tessaro::deviceValue<F>(list, devices);
    }

    SizeValue naturalSize(sceneObjectType kind, const std::string& name) const
    {
        return imageSize ? imageSize(kind, name) : SizeValue{};
    }
};

} // namespace tessaro::layout
