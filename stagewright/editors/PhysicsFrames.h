// The frames of an element's image as the physics sheet shows them, one by
// one: the shapes of an animated image can differ from frame to frame, and a
// frame's index is what a shape's "frames affected" names.
#pragma once

#include <tessaro/model/Enumerations.h>

#include <QString>
#include <QStringList>

namespace stagewright {

/// The files of the image `name` of an element of `kind` in the current
/// workspace, one per frame, in the order the game animates them: the files
/// of an atlas folder "name.atlas" or of a folder "name" in the kind's image
/// folder, sorted by name; else a numbered sequence "name_000", "name_001",
/// ... (or "name_01", ...); else the one image file. "placeholder" lies in
/// "Extras". A name that is no plain file name gives no frames.
QStringList physicsImageFrames(const QString& name, tessaro::sceneObjectType kind);

/// Whether a shape whose "frames affected" text is `frames` takes part in the
/// body of frame `frame`: one comma-separated token is exactly its number.
bool framesInclude(const std::string& frames, int frame);

} // namespace stagewright
