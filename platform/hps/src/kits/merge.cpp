#include "merge.h"

namespace HPS::scene
{
namespace
{

std::uint32_t lockedKinds(LockSet const& locked)
{
    static_assert(LockBit::visibility == 0 && LockBit::colors == VisibilityKinds::KindCount);
    return static_cast<std::uint32_t>((locked & LockSet(VisibilityData::everything)).to_ullong());
}

template <class T> void mergePart(std::optional<T>& base, std::optional<T> const& over)
{
    if (over) base = over;
}

void mergeSimple(std::optional<SimpleMaterial>& base, std::optional<SimpleMaterial> const& over)
{
    if (!over) return;
    if (!base || over->index) {
        base = over;
        return;
    }
    mergePart(base->color, over->color);
    mergePart(base->alpha, over->alpha);
}

// True if every channel of `below` is also set in `over`.
bool covers(MaterialData const& over, MaterialData const& below)
{
    bool all = true;
    forEachAspect<MaterialData>(
        [&](auto const& aspect) { all = all && (!aspect.get(below) || aspect.get(over)); });
    return all;
}

// An index takes the place of all that is not locked; channels lie on top of what is there.
void mergeComplex(std::optional<ComplexMaterial>& base, std::optional<ComplexMaterial> const& over,
                  Surface surface, LockSet const& locked)
{
    if (!over) return;
    auto const first = surfaceBit(surface);
    auto const lockedBits = (locked >> first) & LockSet((1u << LockBit::surfaceBits) - 1);
    if (lockedBits.none() && (!base || over->index)) {
        base = over;
        return;
    }
    auto const takesIndex = over->index && !lockedBits.test(LockBit::surfaceIndex);
    if (!base) base.emplace();
    if (lockedBits.none() && over->channels && (!base->channels || covers(over->values(), base->values()))) {
        base->channels = over->channels;
        return;
    }
    MaterialData merged;
    std::size_t channel = 0;
    forEachAspect<MaterialData>([&](auto const& aspect) {
        bool const isLocked = lockedBits.test(channel++);
        if (isLocked || !takesIndex) aspect.put(merged, aspect.get(base->values()));
        if (!isLocked && aspect.get(over->values())) aspect.put(merged, aspect.get(over->values()));
    });
    if (takesIndex) base->index = over->index;
    base->channels =
        merged == MaterialData() ? nullptr : std::make_shared<MaterialData const>(std::move(merged));
    if (!base->index && !base->channels) base.reset();
}

} // namespace

void merge(VisibilityData& base, VisibilityData const& over)
{
    base.value = (base.value & ~over.isSet) | over.value;
    base.isSet |= over.isSet;
}

void merge(VisibilityData& base, VisibilityData const& over, LockSet const& locked)
{
    auto const kinds = lockedKinds(locked);
    merge(base, VisibilityData{{}, over.isSet & ~kinds, over.value & ~kinds});
}

void merge(MaterialMappingData& base, MaterialMappingData const& over)
{
    merge(base, over, LockSet());
}

void merge(MaterialMappingData& base, MaterialMappingData const& over, LockSet const& locked)
{
    using Data = MaterialMappingData;
    // In the order of the lock bits.
    constexpr std::optional<SimpleMaterial> Data::*simple[] = {
        &Data::ambientUp, &Data::ambientDown, &Data::window, &Data::windowContrast, &Data::light,
        &Data::line,      &Data::marker,      &Data::text,   &Data::cutEdge};
    static_assert(std::size(simple) == LockBit::colorCount);
    auto bit = LockBit::colors;
    for (auto const slot : simple)
        if (!locked.test(bit++)) mergeSimple(base.*slot, over.*slot);

    mergeComplex(base.vertex, over.vertex, Surface::Vertex, locked);
    mergeComplex(base.edge, over.edge, Surface::Edge, locked);
    mergeComplex(base.backFace, over.backFace, Surface::BackFace, locked);
    mergeComplex(base.frontFace, over.frontFace, Surface::FrontFace, locked);
    mergeComplex(base.cutFace, over.cutFace, Surface::CutFace, locked);
}

void merge(CameraData& base, CameraData const& over, LockSet const& locked)
{
    if (!locked.test(LockBit::camera)) merge(base, over);
}

} // namespace HPS::scene
