#pragma once
#include <hps/AttributeLockKit.h>
#include <hps/BoundingKit.h>
#include <hps/CameraKit.h>
#include <hps/CircleKey.h>
#include <hps/CircularArcKey.h>
#include <hps/CircularWedgeKey.h>
#include <hps/ColorInterpolationKit.h>
#include <hps/ConditionControl.h>
#include <hps/ContourLineKit.h>
#include <hps/CullingKit.h>
#include <hps/CurveAttributeKit.h>
#include <hps/CuttingSectionAttributeKit.h>
#include <hps/CuttingSectionKey.h>
#include <hps/CylinderAttributeKit.h>
#include <hps/CylinderKey.h>
#include <hps/DistantLightKey.h>
#include <hps/DrawingAttributeKit.h>
#include <hps/EdgeAttributeKit.h>
#include <hps/EllipseKey.h>
#include <hps/EllipticalArcKey.h>
#include <hps/GridKey.h>
#include <hps/HiddenLineAttributeKit.h>
#include <hps/IncludeKey.h>
#include <hps/InfiniteLineKey.h>
#include <hps/LightingAttributeKit.h>
#include <hps/LineAttributeKit.h>
#include <hps/LineKey.h>
#include <hps/MarkerAttributeKit.h>
#include <hps/MarkerKey.h>
#include <hps/MaterialMappingKit.h>
#include <hps/MeshKey.h>
#include <hps/ModellingMatrixControl.h>
#include <hps/NURBSCurveKey.h>
#include <hps/NURBSSurfaceAttributeKit.h>
#include <hps/NURBSSurfaceKey.h>
#include <hps/PerformanceKit.h>
#include <hps/PolygonKey.h>
#include <hps/PortfolioKey.h>
#include <hps/ReferenceKey.h>
#include <hps/Search.h>
#include <hps/SelectabilityKit.h>
#include <hps/ShellKey.h>
#include <hps/SphereAttributeKit.h>
#include <hps/SphereKey.h>
#include <hps/SpotlightKey.h>
#include <hps/StyleKey.h>
#include <hps/SubwindowKit.h>
#include <hps/TextAttributeKit.h>
#include <hps/TextKey.h>
#include <hps/TransformMaskKit.h>
#include <hps/TransparencyKit.h>
#include <hps/VisibilityKit.h>
#include <hps/VisualEffectsKit.h>
#include <hps/geometry_list.h>
#include <hps/kit_list.h>

namespace HPS
{

using SegmentKeyArray = std::vector<SegmentKey>;
using IncludeKeyArray = std::vector<IncludeKey>;

// A node of the scene: it holds other segments, includes and geometry, and the attributes for all of them.
class SegmentKey : public KeyOf<Type::SegmentKey>
{
public:
    using KeyOf::KeyOf;

    void SetName(UTF8 const& name); // nothing happens if a sibling has the name already

    // The segment of that name below this one; made if it is not there and `create` holds, else an empty key.
    // The empty name never finds one: it makes a new unnamed segment at each call.
    SegmentKey Subsegment(UTF8 const& name, bool create = true);
    SegmentKey Subsegment() { return Subsegment(UTF8(), true); }
    bool ShowSubsegments(SegmentKeyArray& children) const; // false if there are none
    std::size_t GetSubsegmentCount() const;
    // Moves the segment below `owner`, which must not stand below it.
    bool MoveTo(SegmentKey const& owner);

    // Empty, with nothing done, if the segment would then stand below itself.
    IncludeKey IncludeSegment(SegmentKey const& target);
    bool ShowIncludes(IncludeKeyArray& includes) const;
    bool ShowIncluders(IncludeKeyArray& includers) const; // the includes of this segment elsewhere

    // Removes what the types name: objects from the segment, or from all below it; Everything also takes all
    // that is set on the segment, and leaves it bare but for its name.
    SegmentKey& Flush(Search::Type type = Search::Type::Everything,
                      Search::Space space = Search::Space::SegmentOnly);
    SegmentKey& Flush(SearchTypeArray const& types, Search::Space space = Search::Space::SegmentOnly);
    // Number found. In the order of segments from the top down, and of insertion within one.
    std::size_t Find(Search::Type type, Search::Space space, SearchResults& results) const;
    std::size_t Find(SearchTypeArray const& types, Search::Space space, SearchResults& results) const;

    // An empty key, with nothing inserted, for what no geometry can be made of: a number that is none, an
    // index without a point, a facelist that ends within a face, more values than elements, a radius that is
    // not positive, a direction without length, knots that fall.
#define HPS_INSERT(Name) Name##Key Insert##Name(Name##Kit const& kit);
    HPS_GEOMETRY_KINDS(HPS_INSERT)
#undef HPS_INSERT
    ShellKey InsertShell(ShellKit&& kit); // takes the arrays over
    ShellKey InsertShell(std::vector<Point> const& points, std::vector<int> const& facelist);
    ShellKey InsertShell(std::size_t pointCount, Point const points[], std::size_t facelistCount,
                         int const facelist[]);
    LineKey InsertLine(std::vector<Point> const& points);
    LineKey InsertLine(std::size_t count, Point const points[]);
    LineKey InsertLine(Point const& start, Point const& end);
    PolygonKey InsertPolygon(std::vector<Point> const& points);
    PolygonKey InsertPolygon(std::size_t count, Point const points[]);
    MarkerKey InsertMarker(Point const& point);
    TextKey InsertText(Point const& position, UTF8 const& text);
    DistantLightKey InsertDistantLight(Vector const& direction);
    MeshKey InsertMesh(std::size_t rows, std::size_t columns, std::vector<Point> const& points);
    GridKey InsertGrid(Grid::Type type, Point const& origin, Point const& firstPoint,
                       Point const& secondPoint, int firstCount, int secondCount);
    NURBSCurveKey InsertNURBSCurve(std::size_t degree, std::vector<Point> const& points,
                                   std::vector<float> const& knots, std::vector<float> const& weights = {});
    CylinderKey InsertCylinder(Point const& start, Point const& end, float radius,
                               Cylinder::Capping caps = Cylinder::Capping::Both);
    SphereKey InsertSphere(Point const& center, float radius);
    CircleKey InsertCircle(Point const& center, float radius, Vector const& normal);
    CircularArcKey InsertCircularArc(Point const& start, Point const& middle, Point const& end);
    CircularWedgeKey InsertCircularWedge(Point const& start, Point const& middle, Point const& end);
    EllipseKey InsertEllipse(Point const& center, Point const& major, Point const& minor);
    EllipticalArcKey InsertEllipticalArc(Point const& center, Point const& major, Point const& minor,
                                         float start, float end);
    InfiniteLineKey InsertInfiniteLine(Point const& first, Point const& second);
    InfiniteLineKey InsertInfiniteRay(Point const& first, Point const& second);
    SpotlightKey InsertSpotlight(Point const& position, Point const& target);
    CuttingSectionKey InsertCuttingSection(Plane const& plane);
    CuttingSectionKey InsertCuttingSection(std::vector<Plane> const& planes);
    // Shows `target`, which is no reference itself, here as well.
    ReferenceKey ReferenceGeometry(GeometryKey const& target);

    // Attributes. Set lays what the kit has over what is set already; Unset takes all of it away; Show copies
    // what is set on this segment, and is false if that is nothing; the control works on the segment in
    // place.
#define HPS_SEGMENT_KIT(Name)                                                                                \
    SegmentKey& Set##Name(Name##Kit const& kit);                                                             \
    SegmentKey& Unset##Name();                                                                               \
    bool Show##Name(Name##Kit& kit) const;                                                                   \
    Name##Control Get##Name##Control() const                                                                 \
    {                                                                                                        \
        return Name##Control(*this);                                                                         \
    }
    HPS_SEGMENT_KITS(HPS_SEGMENT_KIT)
#undef HPS_SEGMENT_KIT

    SegmentKey& SetModellingMatrix(MatrixKit const& matrix);
    SegmentKey& UnsetModellingMatrix();
    bool ShowModellingMatrix(MatrixKit& matrix) const;
    ModellingMatrixControl GetModellingMatrixControl() const
    {
        return ModellingMatrixControl(*this);
    }

    SegmentKey& SetCondition(UTF8 const& condition);
    SegmentKey& SetConditions(UTF8Array const& conditions);
    SegmentKey& UnsetConditions();
    bool ShowConditions(UTF8Array& conditions) const;
    ConditionControl GetConditionControl() const
    {
        return ConditionControl(*this);
    }
    StyleControl GetStyleControl() const
    {
        return StyleControl(*this);
    }

    PortfolioControl GetPortfolioControl() const
    {
        return PortfolioControl(*this);
    }
    SegmentKey& SetMaterialPalette(UTF8 const& name);
    SegmentKey& UnsetMaterialPalette();
    bool ShowMaterialPalette(UTF8& name) const;

    // From the parameters of vertices to the coordinates of textures.
    SegmentKey& SetTextureMatrix(MatrixKit const& matrix);
    SegmentKey& UnsetTextureMatrix();
    bool ShowTextureMatrix(MatrixKit& matrix) const;
    // Drawn later the higher it is.
    SegmentKey& SetPriority(int priority);
    SegmentKey& UnsetPriority();
    bool ShowPriority(int& priority) const;
};

} // namespace HPS
