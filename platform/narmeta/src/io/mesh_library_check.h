#pragma once

#include <string_view>

namespace NarMetaInfra
{
/// Whether a PLY file is long enough for what its header promises. The mesh library believes the header, and
/// goes on for as many elements as it promises.
bool isPlyComplete(std::string_view bytes);
} // namespace NarMetaInfra
