// The shapes of an image that belong to some of its frames. An obstacle's
// own `physics` is the body of its whole image; the shapes drawn for single
// frames of an animated image live in its animation's `physics`, which the
// game turns into a body per frame.
#pragma once

#include "SubRecords.h"

namespace tessaro {

/// A shape is drawn for frames when its "frames affected" names any.
bool isFrameShape(const std::optional<std::string>& framesAffected);

struct SplitShapes {
    PhysicsProperty whole; ///< the shapes of every frame, with the record's id
    PhysicsProperty frames; ///< the shapes of some frames, with an id of its own
};
/// The shapes of `physics` parted into those of the whole image and those of
/// frames; a list without shapes is absent.
SplitShapes splitFrameShapes(const PhysicsProperty& physics);

/// `base` with the shapes of `more` after its own, kind by kind.
PhysicsProperty joinedShapes(PhysicsProperty base, const PhysicsProperty& more);

/// Whether the record holds any shape.
bool hasShapes(const PhysicsProperty& physics);

} // namespace tessaro
