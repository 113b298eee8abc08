#pragma once

#include <optional>
#include <string>

namespace NarMetaVisu
{

/// How a text is set. Lengths in model units, the others are factors; slant in degrees.
struct Font {
    std::wstring Name;
    std::optional<float> Size;
    std::optional<float> Slant;
    std::optional<float> Spacing;
    std::optional<float> HorizontalScale;

    bool operator==(Font const&) const = default;
};

} // namespace NarMetaVisu
