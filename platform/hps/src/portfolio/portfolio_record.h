#pragma once
#include "segment_record.h"
#include <hps/PortfolioKey.h>
#include <map>
#include <string>

namespace HPS::scene
{

// The materials of a palette. Shared and never changed: a new definition puts new ones in place.
using Palette = std::shared_ptr<std::vector<MaterialKit> const>;

// Definitions by name. Kinds to come (images, textures, glyphs, shapes) are further maps.
struct PortfolioRecord : Record {
    static constexpr HPS::Type family = HPS::Type::PortfolioKey;
    std::map<std::string, KeyIndex, std::less<>> styles; // source segments; some may be gone
    std::map<std::string, LinePatternKit, std::less<>> linePatterns;
    std::map<std::string, Palette, std::less<>> palettes;
};

// Looks a name up along a stack of portfolios, the last one first. Null if none has it, or for a style if its
// source is gone.
SegmentRecord const* findStyle(std::span<KeyIndex const> portfolios, std::string_view name);
LinePatternKit const* findLinePattern(std::span<KeyIndex const> portfolios, std::string_view name);
Palette findPalette(std::span<KeyIndex const> portfolios, std::string_view name);

} // namespace HPS::scene
