#pragma once

#include <string>
#include <vector>

namespace stagewright::cli {

/// roundtrip WORKSPACE PROJECT OUT: opens the project as the editor does,
/// loads every level into a canvas scene, writes it back and saves to OUT.
int roundtripCommand(const std::vector<std::string>& args);

/// render WORKSPACE PROJECT --level N --out FILE.png [--width W]: draws level
/// N (from 1) as the canvas shows it, from its left end to one view past the
/// end of its ground.
int renderCommand(const std::vector<std::string>& args);

} // namespace stagewright::cli
