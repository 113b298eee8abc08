// Insert, Show and Consume, alike for every geometry.
#include "geometry_records.h"
#include "references.h"
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
    auto& data = shapeOf(kit);
    SimpleCuboid box;
    if (!check<R>(data, box)) return false;
    record.box = box;
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
    if constexpr (std::is_same_v<R, ReferenceRecord>) setTarget(record.slot, record.data.target.slot);
    record.place = segment->geometry.push_back(record.slot);
    invalidateBounds(*segment);
    noteChange(*segment, Change::Structure);
    return store().indexOf(record);
}

template <class R> bool show(Key const& key, typename R::Kit& kit)
{
    kit = {};
    auto const* const record = store().resolve<R>(key);
    if (!record) return false;
    shapeOf(kit) = record->data;
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
    if constexpr (std::is_same_v<R, ReferenceRecord>)
        setTarget(record->slot, record->data.target.slot);
    else
        noteTarget(record->slot);
    return true;
}

template <class R> std::size_t pointCount(Key const& key)
{
    auto const* const record = store().resolve<R>(key);
    return record ? record->data.points.size() : 0;
}

} // namespace

template <HPS::Type Expected, class KitType> bool GeometryKeyOf<Expected, KitType>::Show(KitType& kit) const
{
    return show<RecordOf<GeometryKeyOf<Expected, KitType>>>(*this, kit);
}

template <HPS::Type Expected, class KitType> bool GeometryKeyOf<Expected, KitType>::Consume(KitType& kit)
{
    return consume<RecordOf<GeometryKeyOf<Expected, KitType>>>(*this, kit);
}

#define HPS_DEFINE_GEOMETRY(Name)                                                                            \
    template class GeometryKeyOf<Type::Name##Key, Name##Kit>;                                                \
    Name##Key SegmentKey::Insert##Name(Name##Kit const& kit)                                                 \
    {                                                                                                        \
        return Name##Key(insert<Name##Record>(*this, Name##Kit(kit)));                                       \
    }
HPS_GEOMETRY_KINDS(HPS_DEFINE_GEOMETRY)
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

MeshKey SegmentKey::InsertMesh(std::size_t rows, std::size_t columns, std::vector<Point> const& points)
{
    return InsertMesh(MeshKit().SetPoints(rows, columns, points));
}

GridKey SegmentKey::InsertGrid(Grid::Type type, Point const& origin, Point const& firstPoint,
                               Point const& secondPoint, int firstCount, int secondCount)
{
    GridKit kit;
    kit.SetType(type).SetOrigin(origin).SetFirstPoint(firstPoint).SetSecondPoint(secondPoint);
    return InsertGrid(kit.SetFirstCount(firstCount).SetSecondCount(secondCount));
}

NURBSCurveKey SegmentKey::InsertNURBSCurve(std::size_t degree, std::vector<Point> const& points,
                                           std::vector<float> const& knots, std::vector<float> const& weights)
{
    return InsertNURBSCurve(
        NURBSCurveKit().SetDegree(degree).SetPoints(points).SetKnots(knots).SetWeights(weights));
}

CylinderKey SegmentKey::InsertCylinder(Point const& start, Point const& end, float radius,
                                       Cylinder::Capping caps)
{
    return InsertCylinder(CylinderKit().SetPoints({start, end}).SetRadii({radius}).SetCaps(caps));
}

SphereKey SegmentKey::InsertSphere(Point const& center, float radius)
{
    return InsertSphere(SphereKit().SetCenter(center).SetRadius(radius));
}

CircleKey SegmentKey::InsertCircle(Point const& center, float radius, Vector const& normal)
{
    return InsertCircle(CircleKit().SetCenter(center).SetRadius(radius).SetNormal(normal));
}

CircularArcKey SegmentKey::InsertCircularArc(Point const& start, Point const& middle, Point const& end)
{
    return InsertCircularArc(CircularArcKit().SetStart(start).SetMiddle(middle).SetEnd(end));
}

CircularWedgeKey SegmentKey::InsertCircularWedge(Point const& start, Point const& middle, Point const& end)
{
    return InsertCircularWedge(CircularWedgeKit().SetStart(start).SetMiddle(middle).SetEnd(end));
}

EllipseKey SegmentKey::InsertEllipse(Point const& center, Point const& major, Point const& minor)
{
    return InsertEllipse(EllipseKit().SetCenter(center).SetMajor(major).SetMinor(minor));
}

EllipticalArcKey SegmentKey::InsertEllipticalArc(Point const& center, Point const& major, Point const& minor,
                                                 float start, float end)
{
    return InsertEllipticalArc(
        EllipticalArcKit().SetCenter(center).SetMajor(major).SetMinor(minor).SetStart(start).SetEnd(end));
}

InfiniteLineKey SegmentKey::InsertInfiniteLine(Point const& first, Point const& second)
{
    return InsertInfiniteLine(InfiniteLineKit().SetFirst(first).SetSecond(second));
}

InfiniteLineKey SegmentKey::InsertInfiniteRay(Point const& first, Point const& second)
{
    return InsertInfiniteLine(
        InfiniteLineKit().SetFirst(first).SetSecond(second).SetType(InfiniteLine::Type::Ray));
}

SpotlightKey SegmentKey::InsertSpotlight(Point const& position, Point const& target)
{
    return InsertSpotlight(SpotlightKit().SetPosition(position).SetTarget(target));
}

CuttingSectionKey SegmentKey::InsertCuttingSection(Plane const& plane)
{
    return InsertCuttingSection(CuttingSectionKit().SetPlanes(plane));
}

CuttingSectionKey SegmentKey::InsertCuttingSection(std::vector<Plane> const& planes)
{
    return InsertCuttingSection(CuttingSectionKit().SetPlanes(planes));
}

ReferenceKey SegmentKey::ReferenceGeometry(GeometryKey const& target)
{
    return InsertReference(ReferenceKit().SetTarget(target));
}

GeometryKey& GeometryKey::SetPriority(int priority)
{
    auto* const record = store().resolve<GeometryRecord>(*this);
    if (!record) return *this;
    record->hasPriority = true;
    record->priority = priority;
    store().changes.mark(record->slot, Change::Geometry);
    return *this;
}

GeometryKey& GeometryKey::UnsetPriority()
{
    auto* const record = store().resolve<GeometryRecord>(*this);
    if (!record || !record->hasPriority) return *this;
    record->hasPriority = false;
    record->priority = 0;
    store().changes.mark(record->slot, Change::Geometry);
    return *this;
}

bool GeometryKey::ShowPriority(int& priority) const
{
    auto const* const record = store().resolve<GeometryRecord>(*this);
    if (!record || !record->hasPriority) return false;
    priority = record->priority;
    return true;
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

std::size_t MeshKey::GetPointCount() const
{
    return pointCount<MeshRecord>(*this);
}

std::size_t MeshKey::GetFaceCount() const
{
    auto const* const record = store().resolve<MeshRecord>(*this);
    return record ? (record->data.rows - 1) * (record->data.columns - 1) : 0;
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
