#include "corner_shapes.h"
#include "cube_regions.h"
#include <numbers>

namespace HPS
{
namespace
{

using render::as;
using render::Vec3;

MaterialKitArray colours(std::initializer_list<RGBAColor> list)
{
    MaterialKitArray materials;
    for (RGBAColor const& colour : list) materials.push_back(MaterialKit().SetDiffuse(colour));
    return materials;
}

/// An arrow along z from the origin to 1, turned so that z becomes `axis`.
ShellKit arrow(Vec3 const& axis)
{
    constexpr int sides = 16;
    constexpr double shaft = 0.045, head = 0.13, neck = 0.68;
    Vec3 const u{axis.y, axis.z, axis.x}, v = cross(axis, u);
    std::vector<Point> points;
    auto ring = [&](double radius, double along) {
        for (int i = 0; i < sides; ++i) {
            double const angle = 2 * std::numbers::pi * i / sides;
            points.push_back(
                as<Point>(axis * along + u * (radius * std::cos(angle)) + v * (radius * std::sin(angle))));
        }
    };
    ring(shaft, 0);
    ring(shaft, neck);
    ring(head, neck);
    points.push_back(as<Point>(axis));
    std::vector<int> faces;
    auto band = [&](int lower, int upper) {
        for (int i = 0; i < sides; ++i) {
            int const next = (i + 1) % sides;
            faces.insert(faces.end(), {4, lower + i, lower + next, upper + next, upper + i});
        }
    };
    band(0, sides);
    band(sides, 2 * sides);
    for (int i = 0; i < sides; ++i)
        faces.insert(faces.end(), {3, 2 * sides + i, 2 * sides + (i + 1) % sides, 3 * sides});
    faces.push_back(sides);
    for (int i = sides; i-- > 0;) faces.push_back(i);
    return ShellKit().SetPoints(std::move(points)).SetFacelist(std::move(faces));
}

std::string nameOf(CubeRegion const& r)
{
    std::string name;
    auto add = [&](int value, char const* positive, char const* negative) {
        if (value == 0) return;
        if (!name.empty()) name += ' ';
        name += value > 0 ? positive : negative;
    };
    add(r.front, "front", "back");
    add(r.up, "top", "bottom");
    add(r.right, "right", "left");
    return name;
}

/// The material of the side that a region is closest to; edges and corners go with the first of theirs.
int materialOf(CubeRegion const& r)
{
    if (r.up != 0) return r.up > 0 ? 1 : 4;
    if (r.front != 0) return r.front > 0 ? 3 : 0;
    return r.right > 0 ? 5 : 2;
}

/// From the plane of a text to that of a side: the text runs to the right as seen from in front of it.
MatrixKit onSide(CubeRegion const& side)
{
    Vec3 const out{double(side.right), double(side.up), double(side.front)};
    // Above the texts on top and bottom lies what the standard views have above.
    Vec3 const above = side.up != 0 ? Vec3{0, 0, double(-side.up)} : Vec3{0, 1, 0};
    Vec3 const along = cross(above, out);
    Vec3 const at = out * (cubeHalf + 0.01);
    float const rows[16] = {
        float(along.x), float(along.y), float(along.z), 0, float(above.x), float(above.y), float(above.z), 0,
        float(out.x),   float(out.y),   float(out.z),   0, float(at.x),    float(at.y),    float(at.z),    1};
    return MatrixKit(rows);
}

/// A size in pixels becomes one in the units of the cube.
TextAttributeKit onCube(TextAttributeKit kit)
{
    float size = 0;
    Text::SizeUnits units{};
    if (kit.ShowSize(size, units) && units == Text::SizeUnits::Pixels)
        kit.SetSize(float(size / 100 * 2 * cubeHalf), Text::SizeUnits::ObjectSpace);
    kit.SetTransform(Text::Transform::Transformable);
    return kit;
}

} // namespace

MaterialKitArray triadColours()
{
    return colours(
        {RGBAColor(0.2f, 0.3f, 0.95f), RGBAColor(0.15f, 0.7f, 0.2f), RGBAColor(0.85f, 0.15f, 0.15f)});
}

MaterialKitArray cubeColours()
{
    RGBAColor const side(0.75f, 0.76f, 0.78f);
    return colours({side, side, side, side, side, side, RGBAColor(0.4f, 0.7f, 1), RGBAColor::Black(),
                    RGBAColor(0.45f, 0.46f, 0.48f)});
}

void buildTriad(SegmentKey contents)
{
    struct Axis {
        char const* name;
        Vec3 direction;
        float material;
    };
    constexpr Axis axes[] = {{"X", {1, 0, 0}, 2}, {"Y", {0, 1, 0}, 1}, {"Z", {0, 0, 1}, 0}};
    for (Axis const& axis : axes) {
        SegmentKey segment = contents.Subsegment(axis.name);
        segment.Flush();
        segment.GetMaterialMappingControl()
            .SetFaceMaterialByIndex(axis.material)
            .SetTextMaterialByIndex(axis.material);
        segment.GetTextAttributeControl()
            .SetSize(0.17f, Text::SizeUnits::SubscreenRelative)
            .SetAlignment(Text::Alignment::Center)
            .SetTransform(Text::Transform::NonTransformable);
        segment.InsertShell(arrow(axis.direction));
        segment.InsertText(as<Point>(axis.direction * 1.22), axis.name);
    }
}

void buildCube(SegmentKey contents, CornerRecords const& corners)
{
    contents.GetMaterialMappingControl().SetEdgeMaterialByIndex(8).SetTextMaterialByIndex(7);
    contents.SetTextAttribute(onCube(corners.text));
    auto const& regions = cubeRegions();
    for (std::size_t i = 0; i < regions.size(); ++i) {
        SegmentKey segment = contents.Subsegment(nameOf(regions[i]));
        segment.Flush();
        bool const marked = regions[i] == corners.highlighted;
        segment.GetMaterialMappingControl().SetFaceMaterialByIndex(
            float(marked ? 6 : materialOf(regions[i])));
        std::vector<Point> points;
        std::vector<int> face{0};
        for (Vec3 const& corner : cubeOutline(regions[i])) {
            face.push_back(int(points.size()));
            points.push_back(as<Point>(corner));
        }
        face[0] = int(points.size());
        segment.InsertShell(points, face);
        if (i >= corners.labels.size()) continue;
        SegmentKey label = segment.Subsegment("label");
        label.SetModellingMatrix(onSide(regions[i]));
        label.InsertText(Point(), corners.labels[i]);
    }
}

} // namespace HPS
