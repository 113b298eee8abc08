// Insert, Show and Consume, alike for every geometry.
#include "geometry_records.h"
#include "structure.h"
#include "subscriptions.h"
#include "user_data.h"
#include <hps/SegmentKey.h>

namespace HPS
{
using namespace scene;

namespace
{

// Puts a kit's contents into a record, or leaves it as it is and returns false.
template <class R> bool take(R& record, typename R::Kit&& kit)
{
    auto& data = [&]() -> auto&
    {
        if constexpr (std::is_same_v<R, TextRecord>)
            return kit.textData();
        else
            return kit.data();
    }
    ();
    if constexpr (requires { record.box; }) {
        SimpleCuboid box;
        if (!check(data, box)) return false;
        record.box = box;
    } else if (!check(data)) {
        return false;
    }
    record.data = std::move(data);
    record.hasPriority = kit.extras().priority.has_value();
    record.priority = kit.extras().priority.value_or(0);
    record.userData.reset();
    if (!kit.extras().userData.empty()) {
        record.userData = std::make_unique<UserData>();
        for (auto const& [index, bytes] : kit.extras().userData) record.userData->set(index, bytes);
    }
    return true;
}

template <class R> KeyIndex insert(Key const& key, typename R::Kit&& kit)
{
    auto* const segment = store().resolve<SegmentRecord>(key);
    if (!segment) return {};
    auto& record = store().create<R>(R::family);
    if (!take(record, std::move(kit))) {
        store().release(record);
        raiseError("Geometry refused: a coordinate is no number, or its lists do not fit together");
        return {};
    }
    record.owner = segment->slot;
    segment->geometry.push_back(record.slot);
    invalidateBounds(*segment);
    noteChange(*segment, Change::Structure);
    return store().indexOf(record);
}

template <class R> bool show(Key const& key, typename R::Kit& kit)
{
    kit = {};
    auto const* const record = store().resolve<R>(key);
    if (!record) return false;
    if constexpr (std::is_same_v<R, TextRecord>)
        kit.textData() = record->data;
    else
        kit.data() = record->data;
    if (record->hasPriority) kit.SetPriority(record->priority);
    if (record->userData)
        record->userData->forEach([&](UserData::Entry const& entry) {
            kit.SetUserData(entry.index, entry.bytes.size(), entry.bytes.data());
        });
    return true;
}

template <class R> bool consume(Key const& key, typename R::Kit& kit)
{
    auto* const record = store().resolve<R>(key);
    if (!record) return false;
    if (!take(*record, std::move(kit)))
        return raiseError(
                   "Geometry not changed: a coordinate is no number, or its lists do not fit together"),
               false;
    kit = {};
    invalidateBounds(*store().at<SegmentRecord>(record->owner));
    store().changes.mark(record->slot, Change::Geometry);
    return true;
}

template <class R> std::size_t pointCount(Key const& key)
{
    auto const* const record = store().resolve<R>(key);
    return record ? record->data.points.size() : 0;
}

} // namespace

#define HPS_DEFINE_GEOMETRY(Name)                                                                            \
    bool Name##Key::Show(Name##Kit& kit) const                                                               \
    {                                                                                                        \
        return show<Name##Record>(*this, kit);                                                               \
    }                                                                                                        \
    bool Name##Key::Consume(Name##Kit& kit)                                                                  \
    {                                                                                                        \
        return consume<Name##Record>(*this, kit);                                                            \
    }                                                                                                        \
    Name##Key SegmentKey::Insert##Name(Name##Kit const& kit)                                                 \
    {                                                                                                        \
        return Name##Key(insert<Name##Record>(*this, Name##Kit(kit)));                                       \
    }
HPS_DEFINE_GEOMETRY(Shell)
HPS_DEFINE_GEOMETRY(Line)
HPS_DEFINE_GEOMETRY(Polygon)
HPS_DEFINE_GEOMETRY(Marker)
HPS_DEFINE_GEOMETRY(Text)
HPS_DEFINE_GEOMETRY(DistantLight)
#undef HPS_DEFINE_GEOMETRY

ShellKey SegmentKey::InsertShell(ShellKit&& kit)
{
    return ShellKey(insert<ShellRecord>(*this, std::move(kit)));
}

ShellKey SegmentKey::InsertShell(std::vector<Point> const& points, std::vector<int> const& facelist)
{
    return InsertShell(std::move(ShellKit().SetPoints(points).SetFacelist(facelist)));
}

ShellKey SegmentKey::InsertShell(std::size_t pointCount, Point const points[], std::size_t facelistCount,
                                 int const facelist[])
{
    return InsertShell(
        std::move(ShellKit().SetPoints(pointCount, points).SetFacelist(facelistCount, facelist)));
}

LineKey SegmentKey::InsertLine(std::vector<Point> const& points)
{
    return LineKey(insert<LineRecord>(*this, std::move(LineKit().SetPoints(points))));
}

LineKey SegmentKey::InsertLine(std::size_t count, Point const points[])
{
    return LineKey(insert<LineRecord>(*this, std::move(LineKit().SetPoints(count, points))));
}

LineKey SegmentKey::InsertLine(Point const& start, Point const& end)
{
    return InsertLine({start, end});
}

PolygonKey SegmentKey::InsertPolygon(std::vector<Point> const& points)
{
    return PolygonKey(insert<PolygonRecord>(*this, std::move(PolygonKit().SetPoints(points))));
}

PolygonKey SegmentKey::InsertPolygon(std::size_t count, Point const points[])
{
    return PolygonKey(insert<PolygonRecord>(*this, std::move(PolygonKit().SetPoints(count, points))));
}

MarkerKey SegmentKey::InsertMarker(Point const& point)
{
    return MarkerKey(insert<MarkerRecord>(*this, MarkerKit(point)));
}

TextKey SegmentKey::InsertText(Point const& position, UTF8 const& text)
{
    return TextKey(insert<TextRecord>(*this, TextKit(position, text)));
}

DistantLightKey SegmentKey::InsertDistantLight(Vector const& direction)
{
    return DistantLightKey(
        insert<DistantLightRecord>(*this, std::move(DistantLightKit().SetDirection(direction))));
}

std::size_t ShellKey::GetPointCount() const
{
    return pointCount<ShellRecord>(*this);
}

std::size_t ShellKey::GetFaceCount() const
{
    std::size_t faces = 0;
    if (auto const* const record = store().resolve<ShellRecord>(*this))
        forEachLoop(record->data.facelist, [&](FaceLoop const& loop) { faces += !loop.isHole; });
    return faces;
}

std::size_t LineKey::GetPointCount() const
{
    return pointCount<LineRecord>(*this);
}

std::size_t PolygonKey::GetPointCount() const
{
    return pointCount<PolygonRecord>(*this);
}

} // namespace HPS
