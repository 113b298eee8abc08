#include "step_tessellation.h"

#include "StepPictures.h"
#include "StepProducts.h"

#include <algorithm>
#include <set>

namespace NarMetaInfra
{
namespace
{
// A node has the mean of the normals around it; the file's own normals are optional and often one per face.
void addFace(BrepBody& body, int face, StepEntities const& entities, StepGeometry const& geometry)
{
    auto const points = geometry.coordinates(entities.argument(face, 1).entity());
    auto const triangles = stepTriangles(entities, face, points.size());
    std::vector<int> numbers(points.size(), -1);
    std::vector<float> places;
    std::vector<StepPoint> sums;
    std::vector<std::uint32_t> corners;
    for (auto const& triangle : triangles) {
        auto const at = [&](std::size_t i) { return points[static_cast<std::size_t>(triangle[i])]; };
        auto const area = cross(at(1) - at(0), at(2) - at(0));
        for (std::size_t i = 0; i < 3; ++i) {
            auto& number = numbers[static_cast<std::size_t>(triangle[i])];
            if (number < 0) {
                number = static_cast<int>(sums.size());
                for (double const x : at(i)) places.push_back(static_cast<float>(x));
                sums.push_back({});
            }
            sums[static_cast<std::size_t>(number)] = sums[static_cast<std::size_t>(number)] + area;
            corners.push_back(static_cast<std::uint32_t>(number));
        }
    }
    std::vector<float> normals;
    for (auto const& sum : sums)
        for (double const x : dot(sum, sum) > 0.0 ? normalised(sum) : StepPoint{0, 0, 1})
            normals.push_back(static_cast<float>(x));
    if (!corners.empty())
        body.AddFace(NarMeta::HashId(body.id, "face", static_cast<Id>(face)), places, normals, corners);
}
} // namespace

std::vector<BrepBody> stepTessellation(StepEntities const& entities, int product, Id partId)
{
    std::vector<BrepBody> bodies;
    std::set<int> seen;
    for (int const representation : StepProducts(entities).representationsOf(product)) {
        auto const context = entities.argument(representation, 2, "REPRESENTATION", 2).entity();
        StepGeometry const geometry(entities, context);
        for (int const item : entities.argument(representation, 1, "REPRESENTATION", 1).entities()) {
            auto const kind = entities.keywordOf(item);
            if ((kind != "TESSELLATED_SOLID" && kind != "TESSELLATED_SHELL") || !seen.insert(item).second)
                continue;
            BrepBody body;
            body.id = NarMeta::HashId(partId, "tessellated body", static_cast<Id>(item));
            body.name = entities.argument(item, 0).words();
            for (int const face : entities.argument(item, 1).entities())
                addFace(body, face, entities, geometry);
            if (!body.faces.empty()) bodies.push_back(std::move(body));
        }
    }
    return bodies;
}
} // namespace NarMetaInfra
