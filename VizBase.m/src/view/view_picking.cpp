// What lies under a pixel or on a ray.

#include "ViewDocument.h"
#include "ZELPickRayOperator.h"
#include "ZELView3D.h"
#include "tagged_segments.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ZelVizBase
{

using HPS::Coordinate::Space;

namespace
{

constexpr int HalfSquare = 4; ///< pixels

/// The first of the results whose geometry is wanted by its tag, which is TAG_NONE where there is none.
template <class Wanted>
bool findItem(HPS::SelectionResults const& results, HPS::SelectionItem& item, Wanted const& wanted)
{
    for (auto at = results.GetIterator(); at.IsValid(); at.Next()) {
        HPS::SelectionItem const candidate = at.GetItem();
        HPS::Key key;
        if (!candidate.ShowSelectedItem(key)) continue;
        HPS::GeometryKey geometry(key);
        TAG_TYPE type = ZELSegmentTagger::TAG_NONE;
        bool const tagged = ZELSegmentTagger::GetType(geometry, type);
        if (!wanted(tagged, type)) continue;
        item = candidate;
        return true;
    }
    return false;
}

bool findTagged(HPS::SelectionResults const& results, HPS::SelectionItem& item, TAG_TYPE type)
{
    return findItem(results, item, [type](bool tagged, TAG_TYPE found) { return tagged && found == type; });
}

} // namespace

ZELPickRayOperator& ZELView3D::pickRayOperator() const
{
    if (PickRayOperator == nullptr) throw std::logic_error("PicRayOerator not being created or deleted");
    return *PickRayOperator;
}

bool ZELView3D::TogglePickRayOp()
{
    bool const active = pickRayOperator().IsActive();
    if (active) {
        pickRayOperator().DetachView();
        enableHighlightOp();
    } else {
        disableHighlightOp();
        TheView.GetOperatorControl().Push(PickRayOperator, HPS::Operator::Priority::High);
    }
    return active;
}

bool ZELView3D::NotifyPick(ZELVizCore::Ray const& ray)
{
    if (Evo == nullptr) throw std::logic_error("No way to issue a NotifyPick event");
    return Evo->NotifyPick(ray);
}

void ZELView3D::getArea(int x, int y, HPS::Rectangle& area) const
{
    HPS::WindowPoint const first = windowPoint(x - HalfSquare, y - HalfSquare);
    HPS::WindowPoint const second = windowPoint(x + HalfSquare, y + HalfSquare);
    area = HPS::Rectangle(first.x, second.x, second.y, first.y);
}

HPS::SelectionResults ZELView3D::pickSquare(int x, int y) const
{
    HPS::Rectangle area;
    getArea(x, y, area);
    HPS::SelectionOptionsKit options;
    options.SetRelatedLimit(std::numeric_limits<int>::max())
        .SetLevel(HPS::Selection::Level::Entity)
        .SetSorting(HPS::Selection::Sorting::Off);
    HPS::SelectionResults results;
    TheCanvas.GetWindowKey().GetSelectionControl().SelectByArea(area, options, results);
    return results;
}

bool ZELView3D::PickPointOnModel(int x, int y, float& X, float& Y, float& Z) const
{
    HPS::SelectionResults const results = pickSquare(x, y);
    HPS::Point place;
    if (results.Empty() || !results.GetIterator().GetItem().ShowSelectionPosition(place)) return false;
    X = place.x;
    Y = place.y;
    Z = place.z;
    return true;
}

bool ZELView3D::PickVisual(int x, int y, HPS::KeyPath& path) const
{
    HPS::SelectionResults results = pickSquare(x, y);
    ViewDocument const* const shown = document();
    HPS::SegmentKey root;
    if (results.Empty() || shown == nullptr || !shown->ShowSceneRoot(root)) return false;
    HPS::SelectionItem item;
    bool const nonBrep = isNonBrepPicked(results, item);
    if (!nonBrep && !isVertexPicked(results, item) && !isEdgePicked(results, item) &&
        !isFacePicked(results, item))
        return false;
    HPS::KeyPath keyPath;
    HPS::Key selected;
    if (!item.ShowPath(keyPath) || !item.ShowSelectedItem(selected)) return false;
    TAG_TYPE type = ZELSegmentTagger::TAG_NONE;
    if (nonBrep) selected = getParentKey(selected, type);
    // As in every path the leaf stands first.
    auto const first = std::find(keyPath.begin(), keyPath.end(), selected);
    auto const last = std::find(first, keyPath.end(), HPS::Key(root));
    if (last == keyPath.end()) return false;
    for (auto key = first; key <= last; ++key) path.PushBack(*key);
    return true;
}

bool ZELView3D::PickVisual(ZELVizCore::Ray const& ray, HPS::KeyPath& path) const
{
    HPS::Point const origin(ray.origin[0], ray.origin[1], ray.origin[2]);
    HPS::Point pixel;
    if (!TheCanvas.GetWindowKey().ConvertCoordinate(Space::World, origin, Space::Pixel, pixel)) return false;
    return PickVisual(static_cast<int>(pixel.x), static_cast<int>(pixel.y), path);
}

bool ZELView3D::isVertexPicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const
{
    return findTagged(results, item, ZELSegmentTagger::TAG_VERTEX);
}

bool ZELView3D::isEdgePicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const
{
    return findTagged(results, item, ZELSegmentTagger::TAG_EDGE);
}

bool ZELView3D::isFacePicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const
{
    return findTagged(results, item, ZELSegmentTagger::TAG_FACE);
}

bool ZELView3D::isNonBrepPicked(HPS::SelectionResults& results, HPS::SelectionItem& item) const
{
    return findItem(results, item, [](bool tagged, TAG_TYPE) { return !tagged; });
}

} // namespace ZelVizBase
