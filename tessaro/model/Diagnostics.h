// The one place where the library and the editor report a problem: a plain
// line on standard output. Tests install a sink to capture the lines.
#pragma once

#include <functional>
#include <string_view>

namespace tessaro {

/// Writes one diagnostic line (no trailing newline in `line`).
void diagnostic(std::string_view line);

/// Replaces where diagnostic lines go; an empty function restores stdout.
/// Returns the previous sink so a caller can restore it.
using DiagnosticSink = std::function<void(std::string_view)>;
DiagnosticSink setDiagnosticSink(DiagnosticSink sink);

} // namespace tessaro
