// The values of attributes. The numbers are fixed: they travel in files and are shown by number elsewhere.
#pragma once
#include <cstdint>

namespace HPS
{

namespace Camera
{
enum class Projection : std::uint32_t { Default = 0, Stretched = 1, Perspective = 2, Orthographic = 3 };
}

namespace ContourLine
{
enum class Mode : std::uint32_t { Repeating, Explicit };
}

namespace CuttingSection
{
enum class CappingLevel : std::uint32_t { Entity, Segment, SegmentTree };
enum class CappingUsage : std::uint32_t { Off, On, Visibility };
enum class CuttingLevel : std::uint32_t { Global, Local };
enum class MaterialPreference : std::uint32_t { Explicit, Implicit };
enum class Mode : std::uint32_t { None, Round, Square }; // the plane as it is shown
enum class ToleranceUnits : std::uint32_t { Percent, WorldSpace };
} // namespace CuttingSection

namespace Cylinder
{
enum class Capping : std::uint32_t { None, First, Second, Both };
enum class Orientation : std::uint32_t {
    Default,
    DefaultRadii,
    InvertRadii,
    InvertRadiiOnly,
    DefaultColors,
    InvertColors,
    InvertColorsOnly,
    InvertAll
};
} // namespace Cylinder

namespace Drawing
{
enum class ClipOperation : std::uint32_t { Keep, Remove };
enum class ClipSpace : std::uint32_t { Window, World, Object };
enum class Handedness : std::uint32_t { None, Left, Right };
enum class Overlay : std::uint32_t { None, Default, WithZValues, InPlace };
} // namespace Drawing

namespace Grid
{
enum class Type : std::uint32_t { Quadrilateral, Radial };
}

namespace HiddenLine
{
enum class Algorithm : std::uint32_t { None, ZBuffer, ZSort };
}

namespace InfiniteLine
{
enum class Type : std::uint32_t { Line, Ray };
}

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

namespace Performance
{
enum class DisplayLists : std::uint32_t { None, Geometry, Segment };
enum class StaticConditions : std::uint32_t { Independent, Single };
enum class StaticModel : std::uint32_t { None, Attribute, AttributeZonal };
} // namespace Performance

namespace PostProcessEffects
{
namespace AmbientOcclusion
{
enum class Quality : std::uint32_t { Fastest, Nicest };
}
namespace Bloom
{
enum class Shape : std::uint32_t { Star, Radial };
}
} // namespace PostProcessEffects

namespace Selectability
{
enum class Value : std::uint32_t { Off, On, ForcedOn };
}

namespace Selection
{
enum class Algorithm : std::uint32_t { Visual, Analytic };
enum class Granularity : std::uint32_t { General, Detailed };
enum class Level : std::uint32_t { Segment, Entity, Subentity };
enum class Sorting : std::uint32_t { Off, Proximity, ZSorting, Default };
} // namespace Selection

namespace Spotlight
{
enum class InnerConeUnits : std::uint32_t { Degrees, FieldRadius, Percent };
enum class OuterConeUnits : std::uint32_t { Degrees, FieldRadius };
} // namespace Spotlight

namespace Subwindow
{
enum class Background : std::uint32_t {
    SolidColor,
    Image,
    Cubemap,
    Blend,
    Transparent,
    Interactive,
    GradientTopToBottom,
    GradientBottomToTop,
    GradientLeftToRight,
    GradientRightToLeft,
    GradientTopLeftToBottomRight,
    GradientTopRightToBottomLeft,
    GradientBottomLeftToTopRight,
    GradientBottomRightToTopLeft
};
enum class Border : std::uint32_t { None, Line, Inset };
enum class RenderingAlgorithm : std::uint32_t { ZBuffer, HiddenLine, Priority };
enum class Type : std::uint32_t { Standard, Lightweight };
} // namespace Subwindow

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
