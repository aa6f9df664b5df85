#include "StateTypes.h"

#include <tessaro/model/ValueText.h>

namespace stagewright {

QString FileItem::path() const
{
    return folder + name + QLatin1Char('.') + type;
}

std::string_view caseText(SelectionPhase phase)
{
    switch (phase) {
    case SelectionPhase::NotSelected: return "NotSelected";
    case SelectionPhase::BeingSelected: return "BeingSelected";
    case SelectionPhase::Selected: return "Selected";
    case SelectionPhase::None: return "None";
    }
    return "None";
}

sceneScaleMode sceneScaleModeFromText(std::string_view text)
{
    switch (tessaro::scaleModeFromText(text)) {
    case 0: return sceneScaleMode::fill;
    case 2: return sceneScaleMode::aspectFit;
    case 3: return sceneScaleMode::resizeFill;
    default: return sceneScaleMode::aspectFill;
    }
}

std::string_view scaleModeText(sceneScaleMode mode)
{
    switch (mode) {
    case sceneScaleMode::fill: return "fill";
    case sceneScaleMode::aspectFill: return "aspectFill";
    case sceneScaleMode::aspectFit: return "aspectFit";
    case sceneScaleMode::resizeFill: return "resizeFill";
    }
    return "aspectFill";
}

QString sizeDescription(tessaro::SizeValue size)
{
    return QStringLiteral("(") + QString::fromStdString(tessaro::numberText(size.width)) + QStringLiteral(", ") +
        QString::fromStdString(tessaro::numberText(size.height)) + QLatin1Char(')');
}

} // namespace stagewright
