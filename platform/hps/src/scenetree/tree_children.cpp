#include "tree_children.h"
#include "geometry_records.h"
#include "portfolio_record.h"
#include "stored_kit.h"
#include "user_data.h"
#include <algorithm>
#include <hps/PortfolioKey.h>

namespace HPS::scene
{
namespace
{

using ItemType = SceneTree::ItemType;

constexpr ItemType operator+(ItemType family, std::uint32_t number)
{
    return static_cast<ItemType>(static_cast<std::uint32_t>(family) + number);
}
constexpr std::uint32_t numberIn(ItemType type)
{
    return static_cast<std::uint32_t>(type) & 0xFF;
}

struct GeometryRow {
    HPS::Type type;
    char const* group;
    char const* single;
};
// By the number of the item less one. Rays are of the type of lines without ends.
constexpr std::array geometryRows{
    GeometryRow{Type::CuttingSectionKey, "Cutting Sections", "Cutting Section"},
    GeometryRow{Type::ShellKey, "Shells", "Shell"},
    GeometryRow{Type::MeshKey, "Meshes", "Mesh"},
    GeometryRow{Type::GridKey, "Grids", "Grid"},
    GeometryRow{Type::NURBSSurfaceKey, "NURBS Surfaces", "NURBS Surface"},
    GeometryRow{Type::CylinderKey, "Cylinders", "Cylinder"},
    GeometryRow{Type::SphereKey, "Spheres", "Sphere"},
    GeometryRow{Type::PolygonKey, "Polygons", "Polygon"},
    GeometryRow{Type::CircleKey, "Circles", "Circle"},
    GeometryRow{Type::CircularWedgeKey, "Circular Wedges", "Circular Wedge"},
    GeometryRow{Type::EllipseKey, "Ellipses", "Ellipse"},
    GeometryRow{Type::LineKey, "Lines", "Line"},
    GeometryRow{Type::NURBSCurveKey, "NURBS Curves", "NURBS Curve"},
    GeometryRow{Type::CircularArcKey, "Circular Arcs", "Circular Arc"},
    GeometryRow{Type::EllipticalArcKey, "Elliptical Arcs", "Elliptical Arc"},
    GeometryRow{Type::InfiniteLineKey, "Infinite Lines", "Infinite Line"},
    GeometryRow{Type::InfiniteLineKey, "Infinite Rays", "Infinite Ray"},
    GeometryRow{Type::MarkerKey, "Markers", "Marker"},
    GeometryRow{Type::TextKey, "Text", "Text"},
    GeometryRow{Type::ReferenceKey, "References", "Reference"},
    GeometryRow{Type::DistantLightKey, "Distant Lights", "Distant Light"},
    GeometryRow{Type::SpotlightKey, "Spotlights", "Spotlight"},
};

constexpr std::uint32_t infiniteRays = 0x11;

// The row of a geometry, counted from 1.
std::uint32_t numberOf(GeometryRecord const& geometry)
{
    if (geometry.type == Type::InfiniteLineKey &&
        static_cast<InfiniteLineRecord const&>(geometry).data.type == InfiniteLine::Type::Ray)
        return infiniteRays;
    auto const row = std::find_if(geometryRows.begin(), geometryRows.end(),
                                  [&](GeometryRow const& r) { return r.type == geometry.type; });
    return static_cast<std::uint32_t>(row - geometryRows.begin()) + 1;
}

struct AttributeRow {
    std::uint32_t number;
    char const* title;
    bool (*isSet)(SegmentRecord const&);
};
template <KitKind Kind> bool hasKit(SegmentRecord const& segment)
{
    return segment.kit(Kind) != nullptr;
}
constexpr std::array attributeRows{
    AttributeRow{0x04, "Material Palette",
                 [](SegmentRecord const& s) { return s.extras && !s.extras->materialPalette.empty(); }},
    AttributeRow{0x05, "Priority",
                 [](SegmentRecord const& s) { return s.extras && s.extras->priority.has_value(); }},
    AttributeRow{0x06, "Material", hasKit<KitKind::MaterialMapping>},
    AttributeRow{0x07, "Camera", hasKit<KitKind::Camera>},
    AttributeRow{0x08, "Modelling Matrix", [](SegmentRecord const& s) { return bool(s.matrix); }},
    AttributeRow{0x09, "User Data",
                 [](SegmentRecord const& s) { return s.userData && s.userData->size() != 0; }},
    AttributeRow{0x0A, "Texture Matrix",
                 [](SegmentRecord const& s) { return s.extras && s.extras->textureMatrix; }},
    AttributeRow{0x0B, "Culling", hasKit<KitKind::Culling>},
    AttributeRow{0x0C, "Curve Attribute", hasKit<KitKind::CurveAttribute>},
    AttributeRow{0x0D, "Cylinder Attribute", hasKit<KitKind::CylinderAttribute>},
    AttributeRow{0x0E, "Edge Attribute", hasKit<KitKind::EdgeAttribute>},
    AttributeRow{0x0F, "Lighting Attribute", hasKit<KitKind::LightingAttribute>},
    AttributeRow{0x10, "Line Attribute", hasKit<KitKind::LineAttribute>},
    AttributeRow{0x11, "Marker Attribute", hasKit<KitKind::MarkerAttribute>},
    AttributeRow{0x12, "Surface Attribute", hasKit<KitKind::NURBSSurfaceAttribute>},
    AttributeRow{0x13, "Selectability", hasKit<KitKind::Selectability>},
    AttributeRow{0x14, "Sphere Attribute", hasKit<KitKind::SphereAttribute>},
    AttributeRow{0x15, "Subwindow", hasKit<KitKind::Subwindow>},
    AttributeRow{0x16, "Text Attribute", hasKit<KitKind::TextAttribute>},
    AttributeRow{0x17, "Transparency", hasKit<KitKind::Transparency>},
    AttributeRow{0x18, "Visibility", hasKit<KitKind::Visibility>},
    AttributeRow{0x19, "Visual Effects", hasKit<KitKind::VisualEffects>},
    AttributeRow{0x20, "Performance", hasKit<KitKind::Performance>},
    AttributeRow{0x21, "Drawing Attribute", hasKit<KitKind::DrawingAttribute>},
    AttributeRow{0x22, "Hidden Line Attribute", hasKit<KitKind::HiddenLineAttribute>},
    AttributeRow{0x23, "Contour Line", hasKit<KitKind::ContourLine>},
    AttributeRow{0x24, "Conditions",
                 [](SegmentRecord const& s) { return s.extras && !s.extras->conditions.empty(); }},
    AttributeRow{0x25, "Bounding", hasKit<KitKind::Bounding>},
    AttributeRow{0x26, "Attribute Lock", hasKit<KitKind::AttributeLock>},
    AttributeRow{0x27, "Transform Mask", hasKit<KitKind::TransformMask>},
    AttributeRow{0x28, "Color Interpolation", hasKit<KitKind::ColorInterpolation>},
    AttributeRow{0x29, "Cutting Section Attribute", hasKit<KitKind::CuttingSectionAttribute>},
    AttributeRow{0x30, "Debugging", hasKit<KitKind::Debugging>},
    AttributeRow{0x31, "Post Process Effects", hasKit<KitKind::PostProcessEffects>},
    AttributeRow{0x32, "Selection Options", hasKit<KitKind::SelectionOptions>},
    AttributeRow{0x33, "Update Options", hasKit<KitKind::UpdateOptions>},
};

struct DefinitionRow {
    std::uint32_t number;
    char const* group;
    // Calls the function with each name, until it gives false.
    void (*forEachName)(PortfolioRecord const&, std::function<bool(UTF8 const&)> const&);
};
template <HPS::Type Kind>
void names(PortfolioRecord const& portfolio, std::function<bool(UTF8 const&)> const& take)
{
    for (auto const& [name, value] : portfolio.*definitionsOf<Kind>)
        if (!take(UTF8(name))) return;
}
constexpr std::array definitionRows{
    DefinitionRow{1, "Named Styles", names<Type::NamedStyleDefinition>},
    DefinitionRow{2, "Textures", names<Type::TextureDefinition>},
    DefinitionRow{3, "Line Patterns", names<Type::LinePatternDefinition>},
    DefinitionRow{4, "Glyphs", names<Type::GlyphDefinition>},
    DefinitionRow{5, "Cube Maps", names<Type::CubeMapDefinition>},
    DefinitionRow{6, "Images", names<Type::ImageDefinition>},
    DefinitionRow{7, "Material Palettes", names<Type::MaterialPaletteDefinition>},
    DefinitionRow{8, "Legacy Shaders", names<Type::LegacyShaderDefinition>},
    DefinitionRow{9, "Shapes", names<Type::ShapeDefinition>},
};

Key keyOf(SlotIndex slot)
{
    return Key(store().indexOf(slot));
}

UTF8 titleOf(SegmentRecord const& segment)
{
    if (!segment.name.empty()) return UTF8(segment.name);
    return isOfType(segment.type, Type::WindowKey) ? "Window" : "Segment";
}

bool hasAttributes(SegmentRecord const& segment)
{
    return std::any_of(attributeRows.begin(), attributeRows.end(),
                       [&](AttributeRow const& row) { return row.isSet(segment); });
}

void listSegment(Key const& key, SegmentRecord const& segment, TakeChild const& take)
{
    auto const* const extras = segment.extras.get();
    struct Group {
        bool isThere;
        ItemType type;
        char const* title;
    };
    for (auto const& group :
         {Group{extras && !extras->portfolios.empty(), ItemType::PortfolioGroup, "Portfolios"},
          Group{extras && !extras->styles.empty(), ItemType::StyleGroup, "Styles"},
          Group{hasAttributes(segment), ItemType::AttributeGroup, "Attributes"},
          Group{!segment.includes.empty(), ItemType::IncludeGroup, "Includes"},
          Group{!segment.geometry.empty(), ItemType::GeometryGroup, "Geometry"}})
        if (group.isThere && !take(key, group.type, group.title)) return;
    for (auto const slot : segment.children)
        if (!take(keyOf(slot), ItemType::Segment, titleOf(*store().at<SegmentRecord>(slot)))) return;
}

void listGeometryTypes(Key const& key, SegmentRecord const& segment, TakeChild const& take)
{
    std::array<bool, geometryRows.size() + 1> found{};
    for (auto const slot : segment.geometry) found[numberOf(*store().at<GeometryRecord>(slot))] = true;
    for (std::uint32_t i = 1; i <= geometryRows.size(); ++i)
        if (found[i] && !take(key, ItemType::GeometryTypeGroup + i, geometryRows[i - 1].group)) return;
}

void listGeometry(SegmentRecord const& segment, std::uint32_t number, TakeChild const& take)
{
    if (number == 0 || number > geometryRows.size()) return;
    for (auto const slot : segment.geometry)
        if (numberOf(*store().at<GeometryRecord>(slot)) == number &&
            !take(keyOf(slot), ItemType::Geometry + number, geometryRows[number - 1].single))
            return;
}

// A reference's own matrix, and what it refers to.
void listReference(Key const& key, ReferenceRecord const& reference, TakeChild const& take)
{
    if (reference.data.modellingMatrix && !take(key, ItemType::ModellingMatrix, "Modelling Matrix")) return;
    if (auto const* const target = store().resolve<GeometryRecord>(reference.data.target)) {
        auto const number = numberOf(*target);
        take(keyOf(target->slot), ItemType::Geometry + number, geometryRows[number - 1].single);
    }
}

void listStyles(SegmentRecord const& segment, TakeChild const& take)
{
    if (!segment.extras) return;
    for (auto const slot : segment.extras->styles) {
        auto const& style = *store().at<StyleRecord>(slot);
        auto const* const source = store().resolve<SegmentRecord>(style.source);
        bool const go = style.name.empty()
                            ? take(keyOf(slot), ItemType::Style, source ? titleOf(*source) : "Style")
                            : take(keyOf(slot), ItemType::NamedStyle, UTF8(style.name));
        if (!go) return;
    }
}

// A style's or an include's own filter, and the segment it brings in.
void listLink(Key const& key, SegmentRecord const* brought, TakeChild const& take)
{
    if (take(key, ItemType::AttributeFilter, "Filter") && brought)
        take(keyOf(brought->slot), ItemType::Segment, titleOf(*brought));
}

void listDefinitions(Key const& key, PortfolioRecord const& portfolio, ItemType type, TakeChild const& take)
{
    for (auto const& row : definitionRows) {
        bool any = false;
        bool go = true;
        row.forEachName(portfolio, [&](UTF8 const& name) {
            any = true;
            // One name tells that the group has children.
            return type == ItemType::Portfolio
                       ? false
                       : numberIn(type) == row.number &&
                             (go = take(key, ItemType::Definition + row.number, name));
        });
        if (type == ItemType::Portfolio && any)
            go = take(key, ItemType::DefinitionTypeGroup + row.number, row.group);
        if (!go) return;
    }
}

constexpr bool isIn(ItemType type, ItemType family)
{
    return static_cast<std::uint32_t>(type) >> 16 == static_cast<std::uint32_t>(family) >> 16;
}

void listOfSegment(Key const& key, SegmentRecord const& segment, ItemType type, TakeChild const& take)
{
    if (type == ItemType::Segment) return listSegment(key, segment, take);
    if (type == ItemType::StyleGroup) return listStyles(segment, take);
    if (type == ItemType::GeometryGroup) return listGeometryTypes(key, segment, take);
    if (isIn(type, ItemType::GeometryTypeGroup)) return listGeometry(segment, numberIn(type), take);
    if (type == ItemType::AttributeGroup)
        for (auto const& row : attributeRows)
            if (row.isSet(segment) && !take(key, ItemType::Attribute + row.number, row.title)) return;
    if (type == ItemType::IncludeGroup)
        for (auto const slot : segment.includes) {
            auto const& target = *store().at<SegmentRecord>(store().at<IncludeRecord>(slot)->target);
            if (!take(keyOf(slot), ItemType::Include, titleOf(target))) return;
        }
    if (type == ItemType::PortfolioGroup && segment.extras)
        for (auto const index : segment.extras->portfolios)
            if (store().resolve<PortfolioRecord>(index) &&
                !take(Key(index), ItemType::Portfolio, "Portfolio"))
                return;
}

} // namespace

void listChildren(Key const& key, ItemType type, TakeChild const& take)
{
    if (auto const* const segment = store().resolve<SegmentRecord>(key))
        return listOfSegment(key, *segment, type, take);
    if (auto const* const reference = store().resolve<ReferenceRecord>(key)) {
        if (type == ItemType::Reference) listReference(key, *reference, take);
    } else if (auto const* const portfolio = store().resolve<PortfolioRecord>(key)) {
        if (type == ItemType::Portfolio || isIn(type, ItemType::DefinitionTypeGroup))
            listDefinitions(key, *portfolio, type, take);
    } else if (auto const* const include = store().resolve<IncludeRecord>(key)) {
        if (type == ItemType::Include) listLink(key, store().at<SegmentRecord>(include->target), take);
    } else if (auto const* const style = store().resolve<StyleRecord>(key)) {
        if (type == ItemType::Style || type == ItemType::NamedStyle)
            listLink(key, store().resolve<SegmentRecord>(style->source), take);
    }
}

} // namespace HPS::scene
