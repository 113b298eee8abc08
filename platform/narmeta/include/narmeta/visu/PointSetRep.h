#pragma once

#include <narmeta/Colour.h>
#include <narmeta/visu/Representation.h>

#include <memory>
#include <vector>

namespace NarMetaVisu
{

/// Number of a marker symbol; the scene builder maps it to a glyph and draws a dot for one that it does not
/// know.
enum VisuMarkerStyle : int { MarkerDot = 0 };

/// Points that look alike.
class PointsRep : public NarMeta::Coloured
{
public:
    explicit PointsRep(std::vector<float> points = {}, VisuMarkerStyle style = MarkerDot)
        : points_(std::move(points)), style_(style)
    {
    }

    /// x, y, z in a row.
    std::vector<float> const& GetPoints() const { return points_; }
    VisuMarkerStyle GetMarkerStyle() const { return style_; }

private:
    std::vector<float> points_;
    VisuMarkerStyle style_;
};

class PointSetRep : public Representation
{
public:
    using Representation::Representation;

    bool HasData() const { return !points_.empty(); }

    void AddPoints(std::shared_ptr<PointsRep> points) { points_.push_back(std::move(points)); }
    std::vector<std::shared_ptr<PointsRep>>& GetPoints() { return points_; }
    std::vector<std::shared_ptr<PointsRep>> const& GetPoints() const { return points_; }

private:
    std::vector<std::shared_ptr<PointsRep>> points_;
};

} // namespace NarMetaVisu
