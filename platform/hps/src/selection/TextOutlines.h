#pragma once
#include "PickFrame.h"
#include "TextLayout.h"
#include "record.h"
#include <hps/TextKit.h>
#include <unordered_map>

namespace HPS::selection
{

/// Where texts stand: each as the rectangle around its letters, in the world. What has its size on the screen
/// has another for every view. Extents in ems are kept until the text or its fonts change.
class TextOutlines
{
public:
    using Outline = std::array<Vec3, 4>;
    /// Nothing for a text that has no place or no size. `inherited` has every attribute set but those of
    /// backgrounds; `toWorld` leads out of the text's segment.
    std::optional<Outline> of(scene::SlotIndex slot, TextData const& text, TextAttributeData const& inherited,
                              Mat4 const& toWorld, PickFrame const& frame);

    void drop(scene::SlotIndex text) { kept_.erase(text); }
    void dropAll() { kept_.clear(); }

private:
    render::Extent const& extentOf(scene::SlotIndex slot, std::string const& text,
                                   render::TextStyle const& style);

    struct Kept {
        render::TextStyle style;
        std::uint32_t fonts; ///< version of the library
        render::Extent extent;
    };
    std::unordered_map<scene::SlotIndex, Kept> kept_;
};

} // namespace HPS::selection
