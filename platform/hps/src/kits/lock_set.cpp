#include "lock_set.h"
#include <algorithm>
#include <array>
#include <map>

namespace HPS::scene
{
namespace
{

using enum AttributeLock::Type;

std::uint32_t number(AttributeLock::Type type)
{
    return static_cast<std::uint32_t>(type);
}

LockSet bits(std::size_t first, std::size_t count)
{
    LockSet set;
    for (auto i = first; i < first + count; ++i) set.set(i);
    return set;
}

using Table = std::map<AttributeLock::Type, LockSet>;

void addVisibility(Table& table)
{
    for (auto i = number(VisibilityCuttingSections); i <= number(VisibilityMeshQuadEdges); ++i)
        table[static_cast<AttributeLock::Type>(i)] =
            bits(LockBit::visibility + i - number(VisibilityCuttingSections), 1);
    auto const all = [&](std::initializer_list<AttributeLock::Type> types) {
        LockSet set;
        for (auto const type : types) set |= table[type];
        return set;
    };
    table[VisibilityCutGeometry] = all({VisibilityCutEdges, VisibilityCutFaces});
    table[VisibilityEdges] = all({VisibilityGenericEdges, VisibilityHardEdges, VisibilityAdjacentEdges,
                                  VisibilityInteriorSilhouetteEdges, VisibilityPerimeterEdges,
                                  VisibilityNonCulledEdges, VisibilityMeshQuadEdges});
    table[VisibilityGeometry] = all({VisibilityEdges, VisibilityFaces, VisibilityLines, VisibilityText,
                                     VisibilityVertices, VisibilityMarkers});
    table[VisibilityLights] = all({VisibilityEdgeLights, VisibilityMarkerLights, VisibilityFaceLights});
    table[VisibilityShadows] =
        all({VisibilityShadowEmitting, VisibilityShadowReceiving, VisibilityShadowCasting});
    table[Visibility] = bits(LockBit::visibility, LockBit::colors - LockBit::visibility);
}

void addMaterials(Table& table)
{
    std::array const plain = {MaterialAmbientLightUpColor, MaterialAmbientLightDownColor,
                              MaterialWindowColor,         MaterialWindowContrastColor,
                              MaterialLightColor,          MaterialLineColor,
                              MaterialMarkerColor,         MaterialTextColor,
                              MaterialCutEdgeColor};
    static_assert(plain.size() == LockBit::colorCount);
    for (std::size_t i = 0; i < plain.size(); ++i) table[plain[i]] = bits(LockBit::colors + i, 1);
    table[MaterialAmbientLightColor] =
        table[MaterialAmbientLightUpColor] | table[MaterialAmbientLightDownColor];

    // Each surface: the whole, its diffuse group, and then its channels one by one.
    constexpr std::size_t channelCount = 10;
    auto const add = [&](AttributeLock::Type whole, std::initializer_list<Surface> surfaces) {
        for (auto const surface : surfaces) {
            auto const first = surfaceBit(surface);
            table[whole] |= bits(first, LockBit::surfaceBits);
            table[static_cast<AttributeLock::Type>(number(whole) + 1)] |= bits(first, 3);
            for (std::size_t i = 0; i < channelCount; ++i)
                table[static_cast<AttributeLock::Type>(number(whole) + 2 + i)] |= bits(first + i, 1);
        }
    };
    add(MaterialVertex, {Surface::Vertex});
    add(MaterialEdge, {Surface::Edge});
    add(MaterialFace, {Surface::FrontFace, Surface::BackFace});
    add(MaterialBackFace, {Surface::BackFace});
    add(MaterialFrontFace, {Surface::FrontFace});
    add(MaterialCutFace, {Surface::CutFace});

    table[MaterialCutGeometry] = table[MaterialCutFace] | table[MaterialCutEdgeColor];
    table[MaterialGeometry] = table[MaterialVertex] | table[MaterialEdge] | table[MaterialFace] |
                              table[MaterialLineColor] | table[MaterialMarkerColor] |
                              table[MaterialTextColor];
    table[Material] = bits(LockBit::colors, LockBit::camera - LockBit::colors);
}

Table const& lockTable()
{
    static Table const table = [] {
        Table built;
        addVisibility(built);
        addMaterials(built);
        built[Camera] = bits(LockBit::camera, 1);
        built[Everything] = bits(0, LockBit::count);
        return built;
    }();
    return table;
}

} // namespace

LockSet const& lockSet(AttributeLock::Type type)
{
    static LockSet const none;
    auto const found = lockTable().find(type);
    return found == lockTable().end() ? none : found->second;
}

LockSet lockSet(std::optional<LockEntries> const& entries)
{
    LockSet set;
    if (entries)
        for (auto const& entry : *entries)
            if (entry.state) set |= lockSet(entry.type);
    return set;
}

} // namespace HPS::scene

namespace HPS
{

void AttributeLockData::put(std::optional<LockEntries>& entries, AttributeLock::Type type, bool state)
{
    if (!entries) entries.emplace();
    auto const place =
        std::lower_bound(entries->begin(), entries->end(), type,
                         [](LockEntry const& entry, AttributeLock::Type t) { return entry.type < t; });
    if (place != entries->end() && place->type == type)
        place->state = state;
    else
        entries->insert(place, {type, state});
}

void AttributeLockData::remove(std::optional<LockEntries>& entries, AttributeLock::Type type)
{
    if (!entries) return;
    std::erase_if(*entries, [&](LockEntry const& entry) {
        return entry.type == type || type == AttributeLock::Type::Everything;
    });
    if (entries->empty()) entries.reset();
}

bool AttributeLockData::find(std::optional<LockEntries> const& entries, AttributeLock::Type type, bool& state)
{
    if (!entries) return false;
    for (auto const& entry : *entries)
        if (entry.type == type) {
            state = entry.state;
            return true;
        }
    return false;
}

} // namespace HPS
