#pragma once
#include <cstdint>

namespace HPS
{

// What a handle stands for. The upper twelve bits name families, one bit each, so that a window is also a
// segment; the lower twenty number the members of a family. A value with lower bits zero is the family
// itself.
enum class Type : std::uint32_t {
    None = 0,

    Key = 0x10000000,
    IncludeKey = 0x10000001,
    PortfolioKey = 0x10000002,
    StyleKey = 0x10000003,

    GeometryKey = 0x10100000,
    ReferenceKey = 0x10100001,
    CircleKey = 0x10100002,
    CircularArcKey = 0x10100003,
    CircularWedgeKey = 0x10100004,
    CuttingSectionKey = 0x10100005,
    CylinderKey = 0x10100006,
    DistantLightKey = 0x10100007,
    EllipseKey = 0x10100008,
    EllipticalArcKey = 0x10100009,
    LineKey = 0x1010000A,
    GridKey = 0x1010000B,
    InfiniteLineKey = 0x1010000C,
    MarkerKey = 0x1010000D,
    MeshKey = 0x1010000E,
    NURBSCurveKey = 0x1010000F,
    NURBSSurfaceKey = 0x10100010,
    PolygonKey = 0x10100011,
    ShellKey = 0x10100012,
    SphereKey = 0x10100013,
    SpotlightKey = 0x10100014,
    TextKey = 0x10100015,

    SegmentKey = 0x10200000,
    WindowKey = 0x10600000,
    OffScreenWindowKey = 0x10600002,
    ApplicationWindowKey = 0x10600003,

    Sprocket = 0x20000000,
    Canvas = 0x20000001,
    View = 0x20000002,
    Layout = 0x20000003,
    Model = 0x20000004,

    Definition = 0x40000000,
    ImageDefinition = 0x40000001,
    TextureDefinition = 0x40000002,
    LinePatternDefinition = 0x40000003,
    GlyphDefinition = 0x40000004,
    CubeMapDefinition = 0x40000005,
    MaterialPaletteDefinition = 0x40000006,
    LegacyShaderDefinition = 0x40000007,
    ShapeDefinition = 0x40000008,
    NamedStyleDefinition = 0x40000009,
};

// True if `type` is `wanted`, or belongs to the family `wanted`.
constexpr bool isOfType(Type type, Type wanted)
{
    auto const have = static_cast<std::uint32_t>(type);
    auto const want = static_cast<std::uint32_t>(wanted);
    bool const isFamily = want != 0 && (want & 0xFFFFF) == 0;
    return isFamily ? (have & want) == want : have == want;
}

// Base of all handles: a small value that names something the library owns.
class Object
{
public:
    virtual ~Object() = default;

    // What the handle stands for at this moment; None once that is gone, and for an empty handle.
    virtual HPS::Type Type() const = 0;

    bool HasType(HPS::Type type) const { return isOfType(Type(), type); }
    bool Empty() const { return Type() == HPS::Type::None; }

protected:
    Object() = default;
    Object(Object const&) = default;
    Object& operator=(Object const&) = default;
};

} // namespace HPS
