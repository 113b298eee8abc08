#include "Modeller.h"

#include "triangulate.h"

#include <cmath>
#include <numbers>

namespace samples
{

using NarMeta::HashId;
using std::numbers::pi;

namespace
{

/// Adds 0 so that a rounded -0.0 becomes 0.
float Rounded(double value, double perUnit)
{
    return static_cast<float>(std::round(value * perUnit) / perUnit + 0.0);
}

void AddPoint(std::vector<float>& list, double x, double y, double z)
{
    for (double value : {x, y, z}) list.push_back(Rounded(value, 1e3));
}

void AddNormal(std::vector<float>& list, double x, double y, double z)
{
    for (double value : {x, y, z}) list.push_back(Rounded(value, 1e4));
}

/// Four corners, counter-clockwise.
void AddQuad(std::vector<std::uint32_t>& triangles, std::uint32_t a, std::uint32_t b, std::uint32_t c,
             std::uint32_t d)
{
    triangles.insert(triangles.end(), {a, b, c, a, c, d});
}

} // namespace

Modeller::Modeller(std::shared_ptr<NarMetaInfra::ZELReference> reference, std::wstring bodyName)
    : reference_(std::move(reference))
{
    body_.id = HashId(reference_->GetUniqueID(), "body", reference_->GetBodies().size());
    body_.name = bodyName.empty() ? reference_->GetReferenceName() : std::move(bodyName);
}

Modeller& Modeller::Colour(NarMeta::Colour colour)
{
    body_.colour = colour;
    return *this;
}

Modeller& Modeller::Alpha(unsigned short alpha)
{
    body_.alpha = alpha;
    return *this;
}

void Modeller::addFace(FaceKind kind, std::vector<float> const& points, std::vector<float> const& normals,
                       std::vector<std::uint32_t> const& triangles)
{
    body_.AddFace(HashId(body_.id, "face", body_.faces.size()), points, normals, triangles);
    kinds_.push_back(kind);
}

void Modeller::addEdge(std::vector<float> const& points)
{
    body_.AddEdge(HashId(body_.id, "edge", body_.edges.size()), points);
}

void Modeller::addVertex(double x, double y, double z)
{
    body_.AddVertex(HashId(body_.id, "vertex", body_.vertices.size()),
                    {Rounded(x, 1e3), Rounded(y, 1e3), Rounded(z, 1e3)});
}

void Modeller::addCap(std::vector<std::vector<Point2>> const& outlines,
                      std::vector<std::uint32_t> const& triangles, double z, FaceKind kind)
{
    std::vector<float> points, normals;
    for (auto const& outline : outlines)
        for (auto const& [x, y] : outline) {
            AddPoint(points, x, y, z);
            AddNormal(normals, 0, 0, kind == FaceKind::Top ? 1 : -1);
        }
    auto turned = triangles;
    if (kind == FaceKind::Bottom)
        for (std::size_t i = 0; i + 2 < turned.size(); i += 3) std::swap(turned[i + 1], turned[i + 2]);
    addFace(kind, points, normals, turned);
}

void Modeller::addSides(Outline const& outline, double bottom, double top)
{
    for (auto const& segment : outline.Segments()) {
        std::vector<float> points, normals;
        std::vector<std::uint32_t> triangles;
        std::vector<float> lower, upper;
        for (std::size_t i = 0; i < segment.points.size(); ++i) {
            auto const [x, y] = segment.points[i];
            for (double z : {bottom, top}) {
                AddPoint(points, x, y, z);
                AddNormal(normals, segment.normals[i][0], segment.normals[i][1], 0);
            }
            AddPoint(lower, x, y, bottom);
            AddPoint(upper, x, y, top);
            auto const at = static_cast<std::uint32_t>(2 * i);
            if (i > 0) AddQuad(triangles, at - 2, at, at + 1, at - 1);
        }
        addFace(FaceKind::Side, points, normals, triangles);
        addEdge(lower);
        addEdge(upper);
        // A full circle meets only itself: no edge along the seam.
        auto const [x, y] = segment.points.front();
        addVertex(x, y, bottom);
        addVertex(x, y, top);
        if (outline.Segments().size() == 1) continue;
        std::vector<float> upright;
        AddPoint(upright, x, y, bottom);
        AddPoint(upright, x, y, top);
        addEdge(upright);
    }
}

Modeller& Modeller::Extrude(std::vector<Outline> const& outlines, double bottom, double top)
{
    kinds_.clear();
    std::vector<std::vector<Point2>> points;
    for (auto const& outline : outlines) {
        points.push_back(outline.Points());
        // Filled as it will be stored: rounding afterwards could turn a thin triangle over.
        for (auto& [x, y] : points.back()) x = std::round(x * 1e3) / 1e3, y = std::round(y * 1e3) / 1e3;
    }
    auto const triangles = Triangulate(points);
    addCap(points, triangles, bottom, FaceKind::Bottom);
    addCap(points, triangles, top, FaceKind::Top);
    for (auto const& outline : outlines) addSides(outline, bottom, top);
    return *this;
}

Modeller& Modeller::Revolve(Outline const& outline)
{
    kinds_.clear();
    double widest = 0;
    for (auto const& [radius, z] : outline.Points()) widest = std::max(widest, radius);
    auto const steps = static_cast<std::uint32_t>(ChordsOf(widest, 2 * pi));
    auto const angle = [steps](std::uint32_t j) { return 2 * pi * (j % steps) / steps; };
    auto const isAxis = [](Point2 const& point) { return point[0] < 1e-9; };
    auto const ring = [&](Point2 const& point) {
        std::vector<float> circle;
        for (std::uint32_t j = 0; j <= steps; ++j)
            AddPoint(circle, point[0] * std::cos(angle(j)), point[0] * std::sin(angle(j)), point[1]);
        addEdge(circle);
        addVertex(point[0], 0, point[1]);
    };

    for (auto const& segment : outline.Segments()) {
        std::vector<float> points, normals;
        std::vector<std::uint32_t> triangles;
        auto const columns = steps + 1;
        for (std::size_t i = 0; i < segment.points.size(); ++i) {
            auto const [radius, z] = segment.points[i];
            auto const [outwards, up] = segment.normals[i];
            for (std::uint32_t j = 0; j <= steps; ++j) {
                double const x = std::cos(angle(j)), y = std::sin(angle(j));
                AddPoint(points, radius * x, radius * y, z);
                AddNormal(normals, outwards * x, outwards * y, up);
            }
            if (i == 0) continue;
            auto const upper = static_cast<std::uint32_t>(i) * columns, lower = upper - columns;
            for (std::uint32_t j = 0; j < steps; ++j) {
                // At the axis a quad is a triangle.
                if (isAxis(segment.points[i - 1]))
                    triangles.insert(triangles.end(), {lower + j, upper + j + 1, upper + j});
                else if (isAxis(segment.points[i]))
                    triangles.insert(triangles.end(), {lower + j, lower + j + 1, upper + j});
                else
                    AddQuad(triangles, lower + j, lower + j + 1, upper + j + 1, upper + j);
            }
        }
        double const up = segment.normals.front()[1];
        addFace(up > 0.99    ? FaceKind::Top
                : up < -0.99 ? FaceKind::Bottom
                             : FaceKind::Side,
                points, normals, triangles);
        if (!isAxis(segment.points.front())) ring(segment.points.front());
    }
    auto const& last = outline.Segments().back().points.back();
    if (!outline.IsClosed() && !isAxis(last)) ring(last);
    return *this;
}

Modeller& Modeller::FaceColour(FaceKind kind, NarMeta::Colour colour)
{
    auto const first = body_.faces.size() - kinds_.size();
    for (std::size_t i = 0; i < kinds_.size(); ++i)
        if (kinds_[i] == kind) body_.faces[first + i].colour = colour;
    return *this;
}

void Modeller::Finish()
{
    reference_->AddBody(std::move(body_));
}

} // namespace samples
