#pragma once
#include "DrawList.h"
#include "MeshCache.h"
#include "surface_material.h"
#include <map>

namespace HPS::render
{

/// How one side of faces looks.
struct FaceSide {
    std::uint8_t colour[4] = {0, 0, 0, 255};
    SurfaceMaterial material; ///< what the colour does not say

    bool transparent() const { return colour[3] < 255 || material.translucent; }
    bool unseen() const { return colour[3] == 0; }
};

/// How faces look in a place. Needs the device's context to be current where textures are named.
struct FaceLook {
    FaceSide front, back;
    bool twoSided = false; ///< `back` differs from `front`

    bool textured() const { return !front.material.layers.empty() || !back.material.layers.empty(); }

    FaceLook() = default;
    /// `mapping` is what holds for the faces; the rest is what holds in the place.
    FaceLook(MaterialMappingData const& mapping, scene::NetState const& place);
};

/// The looks of all faces in one place: of those that follow the segment, and of those that bring a source of
/// material of their own.
class FaceLooks
{
public:
    FaceLooks() = default;
    explicit FaceLooks(scene::NetStatePointer place);

    FaceLook const& common() const { return common_; }
    FaceLook const& of(FaceGroup const& group);

    /// For vertices that name materials: what makes colours of their numbers. Null without a palette.
    scene::Palette const& palette() const { return palette_; }
    std::uint32_t indexRule() const { return indexRule_; }
    /// A material of the palette is not opaque.
    bool paletteTranslucent() const { return paletteTranslucent_; }

    /// Some face of the mesh needs to know where it lies on a texture.
    bool textured(MeshCache::Drawable const& drawable);

private:
    std::weak_ptr<scene::NetState const> place_; ///< whoever asks keeps it; not to be counted as a user
    FaceLook common_;
    std::map<std::pair<std::shared_ptr<PolyhedronExtras const>, float>, FaceLook> own_;
    scene::Palette palette_;
    std::uint32_t indexRule_ = 0;
    bool paletteTranslucent_ = false;
};

/// One draw of faces: a piece of a mesh, a side of it or both, and its look.
struct FacePart {
    MeshRange range;
    std::uint8_t colour[4];
    SurfaceId surface;
    bool transparent;
    bool cullBack, cullFront; ///< the other side is another part's
};

/// What is to be drawn of a mesh. `drawable` has parameters where `looks` is textured.
std::vector<FacePart> faceParts(FaceLooks& looks, MeshCache::Drawable const& drawable,
                                MaterialTable& materials);

} // namespace HPS::render
