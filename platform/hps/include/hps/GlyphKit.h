#pragma once
#include <hps/Kit.h>
#include <vector>

namespace HPS
{

// A place in a glyph, x to the right and y up, in units of which the glyph's radius counts.
struct GlyphPoint {
    std::int8_t x = 0;
    std::int8_t y = 0;
    friend constexpr bool operator==(GlyphPoint, GlyphPoint) = default;
};
using GlyphPointArray = std::vector<GlyphPoint>;

// One stroke or area of a glyph.
struct GlyphElement {
    enum class Kind : std::uint32_t {
        Lines,   // from point to point
        Polygon, // filled
        Circle,  // around the first point
        Disc     // filled
    };
    Kind kind = Kind::Lines;
    GlyphPointArray points;
    std::uint8_t radius = 0; // of a circle or disc
    friend bool operator==(GlyphElement const&, GlyphElement const&) = default;
};
using GlyphElementArray = std::vector<GlyphElement>;

struct GlyphData {
    std::optional<std::uint8_t> radius;
    std::optional<GlyphPoint> offset;
    std::optional<GlyphElementArray> elements;

    bool operator==(GlyphData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Radius", &GlyphData::radius}, Aspect{2, "Offset", &GlyphData::offset},
                          Aspect{3, "Elements", &GlyphData::elements}};
    }
};
static_assert(CompleteKit<GlyphData>);

template <class Self> class GlyphOperations : public Operations<Self>
{
public:
    using Data = GlyphData;

    // Half of what the size of a marker counts.
    HPS_ASPECT(Radius, std::uint8_t, radius)
    // The point of the glyph that stands at the marker's place.
    HPS_ASPECT(Offset, GlyphPoint, offset)
    HPS_ASPECT(Elements, GlyphElementArray, elements)
};

// The drawing of a marker, or of the end of a line.
class GlyphKit : public Kit<GlyphKit, GlyphOperations>
{
public:
    // The glyphs that need no definition: those of GetDefaultNames(). Unset for any other name.
    static GlyphKit GetDefault(UTF8 const& name);
    static std::vector<UTF8> GetDefaultNames();
};

} // namespace HPS
