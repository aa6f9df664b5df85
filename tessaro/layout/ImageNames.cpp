#include "ImageNames.h"

#include <tessaro/model/NameLists.h>

namespace tessaro::layout {

std::string firstImageName(const std::string& imageText)
{
    if (imageText.find(',') == std::string::npos)
        return imageText;
    const std::vector<std::string> names = trimmedNamesFromText(imageText);
    return names.empty() ? std::string() : names.front();
}

double pixelsPerPoint(imageScaling scale)
{
    switch (scale) {
    case imageScaling::x2: return 2;
    case imageScaling::x3: return 3;
    case imageScaling::none:
    case imageScaling::x1: break;
    }
    return 1;
}

} // namespace tessaro::layout
