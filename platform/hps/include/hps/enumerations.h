// The values of attributes. The numbers are fixed: they travel in files and are shown by number elsewhere.
#pragma once
#include <cstdint>

namespace HPS
{

namespace Camera
{
enum class Projection : std::uint32_t { Default = 0, Stretched = 1, Perspective = 2, Orthographic = 3 };
}

namespace Drawing
{
enum class ClipOperation : std::uint32_t { Keep, Remove };
enum class ClipSpace : std::uint32_t { Window, World, Object };
enum class Handedness : std::uint32_t { None, Left, Right };
enum class Overlay : std::uint32_t { None, Default, WithZValues, InPlace };
} // namespace Drawing

namespace Line
{
enum class SizeUnits : std::uint32_t {
    ScaleFactor,
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels
};
}

namespace Edge
{
enum class SizeUnits : std::uint32_t {
    ScaleFactor,
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels
};
}

namespace Marker
{
enum class DrawingPreference : std::uint32_t { Nicest, Fastest };
enum class SizeUnits : std::uint32_t {
    ScaleFactor,
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels
};
} // namespace Marker

namespace LinePattern
{
enum class Cap : std::uint32_t { Butt, Disc, InvertedTriangle, Mitre, Square };
// The patterns that every portfolio can define without a description of its own.
enum class Default : std::uint32_t {
    Solid,
    Dashed,
    Dotted,
    DashDot,
    DashDotDot,
    DashDotDotDot,
    LongDash,
    CenterLine,
    Phantom
};
enum class Join : std::uint32_t { Mitre, Round, Bevel };
enum class Modifier : std::uint32_t { GlyphName, Enumerated };
} // namespace LinePattern

namespace Lighting
{
enum class InterpolationAlgorithm : std::uint32_t { Phong, Gouraud, Flat };
}

namespace Material
{
enum class Type : std::uint32_t {
    None = 0,
    FullMaterial = 1,
    RGBColor = 2,
    RGBAColor = 3,
    MaterialIndex = 4,
    TextureName = 5,
    ModulatedTexture = 6,
    CubeMapName = 7,
    ModulatedCubeMap = 8,
    DiffuseChannelAlpha = 10
};
namespace Color
{
enum class Channel : std::uint32_t {
    DiffuseColor = 1,
    Specular = 2,
    Mirror = 3,
    Transmission = 4,
    Emission = 5,
    EnvironmentColor = 6
};
}
} // namespace Material

namespace Selectability
{
enum class Value : std::uint32_t { Off, On, ForcedOn };
}

namespace Text
{
enum class Alignment : std::uint32_t {
    TopLeft,
    CenterLeft,
    BottomLeft,
    TopCenter,
    Center,
    BottomCenter,
    TopRight,
    CenterRight,
    BottomRight
};
enum class GreekingMode : std::uint32_t { Nothing, Lines, Box };
enum class GreekingUnits : std::uint32_t {
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels
};
enum class Justification : std::uint32_t { Left, Right, Center };
enum class LeaderLineSpace : std::uint32_t { Object, World };
enum class MarginUnits : std::uint32_t {
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels,
    Percent
};
enum class Preference : std::uint32_t { Default, Vector, Raster, Exterior };
enum class ReferenceFrame : std::uint32_t { WorldAligned, PathAligned };
enum class RegionAlignment : std::uint32_t { Top, Center, Bottom };
enum class RegionFitting : std::uint32_t { Left, Center, Right, Spacing, Width, Auto };
enum class Renderer : std::uint32_t { Default, Driver, Truetype };
enum class Rotation : std::uint32_t { None, Rotate, FollowPath };
enum class SizeToleranceUnits : std::uint32_t {
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels,
    Percent
};
enum class SizeUnits : std::uint32_t {
    ObjectSpace,
    SubscreenRelative,
    WindowRelative,
    WorldSpace,
    Points,
    Pixels
};
enum class Transform : std::uint32_t {
    Transformable,
    NonTransformable,
    CharacterPositionOnly,
    CharacterPositionAdjusted,
    NonScalingTransformable
};
} // namespace Text

namespace Transparency
{
enum class Algorithm : std::uint32_t {
    None,
    Painters,
    ZSortNicest,
    ZSortFastest,
    DepthPeeling,
    WeightedBlended
};
enum class AreaUnits : std::uint32_t { Percent, Pixels };
enum class Method : std::uint32_t { None, Blended, ScreenDoor };
enum class Preference : std::uint32_t { Nicest, Fastest };
} // namespace Transparency

} // namespace HPS
