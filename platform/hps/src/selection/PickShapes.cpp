#include "PickShapes.h"
#include <algorithm>

namespace HPS::selection
{

using namespace scene;
using render::EdgeChoice;
using render::Fineness;

template <class Make> PickShape const& PickShapes::find(GeometryRecord const& geometry, Kind kind,
                                                        Fineness const& fineness, EdgeChoice const& choice,
                                                        Make const& make)
{
    constexpr std::size_t most = 8; // finenesses and choices that somebody still asks for
    static Fineness const any;
    Fineness const& wanted = render::drawnAs(geometry.type).curved ? fineness : any;
    auto& kept = kept_[geometry.slot];
    auto const found = std::find_if(kept.begin(), kept.end(), [&](Kept const& k) {
        return k.kind == kind && k.choice == choice && k.fineness == wanted;
    });
    if (found != kept.end()) return *found->shape;
    if (kept.size() >= most) kept.erase(kept.begin());
    return *kept.emplace_back(Kept{kind, choice, wanted, make(wanted)}).shape;
}

PickShape const& PickShapes::faces(GeometryRecord const& geometry, Fineness const& fineness)
{
    if (borrowedFaces_.borrowFaces(geometry)) return borrowedFaces_;
    return find(geometry, Kind::Faces, fineness, {},
                [&](Fineness const& wanted) { return PickShape::facesOf(geometry, wanted); });
}

PickShape const& PickShapes::edges(GeometryRecord const& geometry, Fineness const& fineness,
                                   EdgeChoice const& choice)
{
    return find(geometry, Kind::Edges, fineness, choice, [&](Fineness const& wanted) {
        return PickShape::edgesOf(geometry, wanted, choice.kinds, choice.hardAngle);
    });
}

PickShape const& PickShapes::vertices(GeometryRecord const& geometry, Fineness const& fineness)
{
    return find(geometry, Kind::Vertices, fineness, {},
                [&](Fineness const& wanted) { return PickShape::verticesOf(geometry, wanted); });
}

PickShape const& PickShapes::lines(GeometryRecord const& geometry, Fineness const& fineness)
{
    if (borrowedLines_.borrowLines(geometry)) return borrowedLines_;
    return find(geometry, Kind::Lines, fineness, {},
                [&](Fineness const& wanted) { return PickShape::linesOf(geometry, wanted); });
}

std::size_t PickShapes::bytes() const
{
    std::size_t total = 0;
    for (auto const& [slot, kept] : kept_) {
        total += sizeof(std::pair<SlotIndex, std::vector<Kept>>) + 2 * sizeof(void*) +
                 kept.capacity() * sizeof(Kept);
        for (Kept const& k : kept) total += k.shape->bytes();
    }
    return total;
}

} // namespace HPS::selection
