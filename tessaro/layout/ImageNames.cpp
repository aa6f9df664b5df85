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

} // namespace tessaro::layout
