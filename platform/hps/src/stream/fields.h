// What the small values consist of that list no fields of their own, for reading and writing alike. Whatever
// a kit, geometry or definition comes to hold that the compiler does not find here is one line more.
#pragma once
#include "portfolio_record.h"
#include <hps/AttributeLockKit.h>
#include <hps/BoundingKit.h>
#include <hps/ElementValues.h>
#include <hps/LinePatternOptionsKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/Plane.h>
#include <hps/Rectangle.h>

namespace HPS::scene
{

// T, or T const.
template <class U, class T>
concept As = std::same_as<std::remove_const_t<U>, T>;

// clang-format off
auto fields(As<Point> auto& p) { return std::tie(p.x, p.y, p.z); }
auto fields(As<Vector> auto& v) { return std::tie(v.x, v.y, v.z); }
auto fields(As<Plane> auto& p) { return std::tie(p.a, p.b, p.c, p.d); }
auto fields(As<SimpleCuboid> auto& box) { return std::tie(box.min, box.max); }
auto fields(As<SimpleSphere> auto& sphere) { return std::tie(sphere.center, sphere.radius); }
auto fields(As<RGBColor> auto& c) { return std::tie(c.red, c.green, c.blue); }
auto fields(As<RGBAColor> auto& c) { return std::tie(c.red, c.green, c.blue, c.alpha); }
auto fields(As<Rectangle> auto& r) { return std::tie(r.left, r.right, r.bottom, r.top); }
auto fields(As<IntRectangle> auto& r) { return std::tie(r.left, r.right, r.bottom, r.top); }
auto fields(As<BoundingVolume> auto& v) { return std::tie(v.isSphere, v.sphere, v.cuboid); }
auto fields(As<LockEntry> auto& entry) { return std::tie(entry.type, entry.state); }
auto fields(As<CapOrJoin<LinePattern::Cap>> auto& cap) { return std::tie(cap.modifier, cap.glyph, cap.shape); }
auto fields(As<CapOrJoin<LinePattern::Join>> auto& join) { return std::tie(join.modifier, join.glyph, join.shape); }
auto fields(As<MaterialChannel> auto& channel) { return std::tie(channel.type, channel.color, channel.texture); }
auto fields(As<SimpleMaterial> auto& material) { return std::tie(material.color, material.alpha, material.index); }
auto fields(As<LinePatternElement> auto& element) { return std::tie(element.kind, element.length); }
auto fields(As<LinePatternParallel> auto& parallel) { return std::tie(parallel.elements, parallel.offset); }
auto fields(As<GlyphPoint> auto& point) { return std::tie(point.x, point.y); }
auto fields(As<GlyphElement> auto& element) { return std::tie(element.kind, element.points, element.radius); }
auto fields(As<ShapeElement> auto& element) { return std::tie(element.kind, element.points, element.filled); }
auto fields(As<Texture> auto& texture) { return std::tie(texture.image, texture.options); }
auto fields(As<CubeMap> auto& cubeMap) { return std::tie(cubeMap.images, cubeMap.options); }
// clang-format on

} // namespace HPS::scene
