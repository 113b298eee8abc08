#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace NarMetaInfra
{
/// What the header of a Part 21 file says about the file, as labelled lines in a fixed order; what is left
/// blank is left out. The members of a list are joined by commas.
std::vector<std::pair<std::wstring, std::wstring>> stepHeaderLines(std::string_view text);
} // namespace NarMetaInfra
