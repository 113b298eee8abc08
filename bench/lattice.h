// Many places of few parts, as several benchmarks want them.
#pragma once
#include <cmath>
#include <hps/Model.h>
#include <hps/hps.h>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace bench
{

/// A ball of so many triangles, a line of 400 pieces and 20 markers.
inline void addPart(HPS::SegmentKey part, int triangles, std::mt19937& random)
{
    int const rows = std::max(3, int(std::sqrt(triangles / 4.0))), columns = rows * 2;
    std::vector<HPS::Point> points;
    std::vector<int> faces;
    for (int r = 0; r <= rows; ++r)
        for (int c = 0; c < columns; ++c) {
            double const polar = std::numbers::pi * r / rows, turn = 2 * std::numbers::pi * c / columns;
            points.emplace_back(float(0.4 * std::sin(polar) * std::cos(turn)), float(0.4 * std::cos(polar)),
                                float(0.4 * std::sin(polar) * std::sin(turn)));
        }
    for (int r = 0; r < rows; ++r)
        for (int c = 0; c < columns; ++c) {
            int const a = r * columns + c, b = r * columns + (c + 1) % columns;
            faces.insert(faces.end(), {3, a, b, a + columns, 3, b, b + columns, a + columns});
        }
    part.InsertShell(points, faces);
    std::uniform_real_distribution<float> anywhere(-0.4f, 0.4f);
    std::vector<HPS::Point> chain;
    for (int i = 0; i <= 400; ++i) chain.emplace_back(anywhere(random), anywhere(random), anywhere(random));
    part.InsertLine(chain);
    for (int i = 0; i < 20; ++i) part.InsertMarker({anywhere(random), anywhere(random), anywhere(random)});
}

/// A cube of instances of 20 parts, one unit apart.
inline std::vector<HPS::SegmentKey> fillLattice(HPS::Model const& model, int instances, int triangles)
{
    constexpr int Parts = 20;
    std::mt19937 random(1);
    std::vector<HPS::SegmentKey> parts, places;
    for (int i = 0; i < Parts; ++i) {
        parts.push_back(model.GetLibraryKey().Subsegment("part " + std::to_string(i)));
        addPart(parts.back(), triangles, random);
    }
    int const side = int(std::ceil(std::cbrt(instances)));
    for (int i = 0; i < instances; ++i) {
        places.push_back(model.GetSegmentKey().Subsegment());
        places.back().IncludeSegment(parts[std::size_t(i % Parts)]);
        places.back().GetModellingMatrixControl().Translate(i % side, i / side % side, i / side / side);
    }
    return places;
}

} // namespace bench
