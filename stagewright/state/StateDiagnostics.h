// Diagnostic lines from Qt texts (internal to the state library).
#pragma once

#include <tessaro/model/Diagnostics.h>

#include <QString>

namespace stagewright {

inline void diagnosticLine(const QString& line)
{
    tessaro::diagnostic(line.toStdString());
}

inline QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace stagewright
