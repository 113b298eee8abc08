#pragma once
#include "Font.h"
#include "MeshStore.h"
#include "glyph_drawing.h"
#include <map>

namespace HPS::render
{

/// A flat drawing on the device, and its extent in the drawing's own units.
struct DrawnGlyph {
    Mesh mesh;
    FlatMesh::Corner low{0, 0}, high{0, 0};
};

/// The drawings of letters and of what stands around them, each uploaded once for the process. Needs the
/// device's context to be current.
class GlyphStore
{
public:
    static GlyphStore& instance();

    /// In ems. Valid as long as the process.
    DrawnGlyph const& letter(Font& font, std::uint32_t glyph, Font::Weight weight, Font::Detail detail);
    /// From (0, 0) to (1, 1).
    DrawnGlyph const& quad();
    /// A line from the origin to (1, 0, 0).
    Mesh const& unitLine();
    /// The area of a text's background; null for the one that needs no definition. Kept by value.
    DrawnGlyph const& background(ShapeKit const* shape);

private:
    template <class T> friend T& ofContext();
    struct Letter {
        Font* font;
        std::uint32_t glyph;
        Font::Weight weight;
        Font::Detail detail;
        auto operator<=>(Letter const&) const = default;
    };
    GlyphStore() { MeshStore::instance(); } // it goes later, for the meshes to be given back
    std::map<Letter, DrawnGlyph> letters_;
    std::vector<std::pair<ShapeKit, std::unique_ptr<DrawnGlyph>>> shapes_; ///< few
    DrawnGlyph quad_;
    Mesh unitLine_;
};

/// The vertices of a drawing whose place is the origin.
std::vector<GlyphVertex> plantedVertices(FlatMesh const& mesh);

} // namespace HPS::render
