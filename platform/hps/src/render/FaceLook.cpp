#include "FaceLook.h"
#include "merge.h"
#include <algorithm>
#include <cassert>
#include <hps/ColorInterpolationKit.h>
#include <hps/LightingAttributeKit.h>
#include <limits>

namespace HPS::render
{
namespace
{

MaterialMappingData const& defaultMapping()
{
    static MaterialMappingData const values = MaterialMappingKit::GetDefault().data();
    return values;
}

bool blendsColours(scene::NetState const& place)
{
    return place.get<ColorInterpolationData>().faceColor.value_or(true);
}
bool blendsIndices(scene::NetState const& place)
{
    return place.get<ColorInterpolationData>().faceIndex.value_or(false);
}

FaceSide sideOf(std::optional<ComplexMaterial> const& set, std::optional<ComplexMaterial> const& fallback,
                scene::NetState const& place)
{
    FaceSide side;
    MaterialData const channels = channelsOf(set, place.palette().get());
    MaterialData const& usual = fallback->values();
    RGBColor const colour = channels.diffuseColor.value_or(*usual.diffuseColor);
    side.colour[0] = colourByte(colour.red);
    side.colour[1] = colourByte(colour.green);
    side.colour[2] = colourByte(colour.blue);
    side.colour[3] = colourByte(channels.diffuseAlpha.value_or(*usual.diffuseAlpha));
    side.material = surfaceMaterial(channels, place);
    Features& features = side.material.kind.features;
    using enum Lighting::InterpolationAlgorithm;
    switch (place.get<LightingAttributeData>().interpolationAlgorithm.value_or(Phong)) {
    case Phong:
        break;
    case Gouraud:
        features.set(Feature::Gouraud);
        break;
    case Flat:
        features.set(Feature::Flat);
        break;
    }
    features.set(Feature::FlatColours, !blendsColours(place));
    return side;
}

} // namespace

FaceLook::FaceLook(MaterialMappingData const& mapping, scene::NetState const& place)
    : front(sideOf(mapping.frontFace, defaultMapping().frontFace, place))
{
    twoSided = !(mapping.frontFace == mapping.backFace);
    if (twoSided) back = sideOf(mapping.backFace, defaultMapping().backFace, place);
}

FaceLooks::FaceLooks(scene::NetStatePointer place)
    : place_(place), common_(place->get<MaterialMappingData>(), *place), palette_(place->palette())
{
    if (blendsColours(*place)) indexRule_ |= BlendColours;
    if (blendsIndices(*place)) indexRule_ |= BlendIndices;
    if (palette_)
        paletteTranslucent_ =
            std::any_of(palette_->begin(), palette_->end(), [](MaterialKit const& material) {
                return material.data().diffuseAlpha.value_or(1) < 1;
            });
}

bool FaceLooks::textured(MeshCache::Drawable const& drawable)
{
    return common_.textured() || std::any_of(drawable.groups.begin(), drawable.groups.end(),
                                             [&](FaceGroup const& group) { return of(group).textured(); });
}

FaceLook const& FaceLooks::of(FaceGroup const& group)
{
    float const none = std::numeric_limits<float>::lowest();
    auto const [found, isNew] = own_.try_emplace({group.mapping, group.paletteIndex.value_or(none)});
    if (!isNew) return found->second;
    scene::NetStatePointer const place = place_.lock();
    assert(place != nullptr && "FaceLooks::of: the place is gone");
    MaterialMappingData mapping = place->get<MaterialMappingData>();
    if (group.mapping) scene::merge(mapping, group.mapping->materialMapping);
    if (group.paletteIndex && palette_) {
        detail::setComplexIndex(mapping.frontFace, *group.paletteIndex);
        detail::setComplexIndex(mapping.backFace, *group.paletteIndex);
    }
    found->second = FaceLook(mapping, *place);
    return found->second;
}

namespace
{

/// Turns pieces of one mesh into parts.
class PartMaker
{
public:
    PartMaker(FaceLooks& looks, MeshCache::Drawable const& drawable, MaterialTable& materials)
        : looks_(looks), drawable_(drawable), materials_(materials)
    {
        auto const parameters = drawable.mesh.parameters();
        place_ = {drawable.mesh.box(), parameters.value_or(0), parameters.has_value(),
                  drawable.parametersComplete};
        if (drawable.indexed && looks.palette() && !looks.palette()->empty())
            palette_ = materials.internPalette(paletteRows(*looks.palette()));
    }

    void add(FaceLook const& look, std::uint32_t firstIndex, std::uint32_t indexCount)
    {
        MeshRange const& whole = drawable_.mesh.range();
        MeshRange const range{whole.firstIndex + firstIndex, indexCount, whole.baseVertex};
        addSide(look.front, range, look.twoSided, false);
        if (look.twoSided) addSide(look.back, range, false, true);
    }

    std::vector<FacePart> take() { return std::move(parts_); }

private:
    void addSide(FaceSide const& side, MeshRange const& range, bool cullBack, bool cullFront)
    {
        if (range.indexCount == 0 || side.unseen()) return;
        FacePart part{range, {}, {}, side.transparent() || drawable_.translucent, cullBack, cullFront};
        std::copy_n(side.colour, 4, part.colour);
        if (palette_) {
            part.transparent = part.transparent || looks_.paletteTranslucent();
            part.surface = materials_.intern(indexed(placed(side.material, place_)));
        } else if (side.material.layers.empty()) {
            part.surface = materials_.intern(side.material);
        } else {
            part.surface = materials_.intern(placed(side.material, place_));
        }
        parts_.push_back(part);
    }

    SurfaceMaterial indexed(SurfaceMaterial material) const
    {
        material.row.palette = *palette_;
        material.row.paletteSize = std::uint32_t(looks_.palette()->size());
        material.row.indexRule = looks_.indexRule();
        material.kind.features.set(Feature::Indexed);
        if ((looks_.indexRule() & BlendIndices) != 0) material.kind.features.set(Feature::FlatColours, false);
        return material;
    }

    FaceLooks& looks_;
    MeshCache::Drawable const& drawable_;
    MaterialTable& materials_;
    MeshPlace place_;
    std::optional<std::uint32_t> palette_; ///< its first row
    std::vector<FacePart> parts_;
};

} // namespace

std::vector<FacePart> faceParts(FaceLooks& looks, MeshCache::Drawable const& drawable,
                                MaterialTable& materials)
{
    PartMaker maker(looks, drawable, materials);
    std::uint32_t done = 0;
    for (FaceGroup const& group : drawable.groups) {
        maker.add(looks.common(), done, group.firstIndex - done);
        maker.add(looks.of(group), group.firstIndex, group.indexCount);
        done = group.firstIndex + group.indexCount;
    }
    maker.add(looks.common(), done, drawable.mesh.range().indexCount - done);
    return maker.take();
}

} // namespace HPS::render
