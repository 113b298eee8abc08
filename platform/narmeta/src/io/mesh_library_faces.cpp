#include "mesh_library_faces.h"

#include "mesh_normals.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

#include <assimp/mesh.h>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t MostPatches = 256;

bool isFinite(aiVector3D const& point)
{
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

// A triangle with a corner that is none, or with numbers that are none, is left out.
std::vector<std::uint32_t> trianglesOf(aiMesh const& mesh)
{
    std::vector<std::uint32_t> triangles;
    triangles.reserve(std::size_t{3} * mesh.mNumFaces);
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        auto const& face = mesh.mFaces[i];
        bool const isGood =
            face.mNumIndices == 3 && std::all_of(face.mIndices, face.mIndices + 3, [&](unsigned point) {
                return point < mesh.mNumVertices && isFinite(mesh.mVertices[point]);
            });
        if (isGood) triangles.insert(triangles.end(), face.mIndices, face.mIndices + 3);
    }
    return triangles;
}

bool hasGoodNormals(aiMesh const& mesh)
{
    return mesh.mNormals &&
           std::all_of(mesh.mNormals, mesh.mNormals + mesh.mNumVertices, [](aiVector3D const& n) {
               return isFinite(n) && std::abs(n.Length() - 1.0f) < 0.01f;
           });
}

SmoothedMesh normalsOf(aiMesh const& mesh)
{
    auto triangles = trianglesOf(mesh);
    std::vector<float> points;
    points.reserve(std::size_t{3} * mesh.mNumVertices);
    for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        auto const& point = mesh.mVertices[i];
        for (float const x : {point.x, point.y, point.z}) points.push_back(std::isfinite(x) ? x : 0.0f);
    }
    if (!hasGoodNormals(mesh)) return smoothMesh(points, triangles);
    SmoothedMesh made{std::move(points), {}, std::move(triangles), {}};
    for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        auto const& normal = mesh.mNormals[i];
        made.normals.insert(made.normals.end(), {normal.x, normal.y, normal.z});
        made.sources.push_back(i);
    }
    return made;
}

// The mean of each triangle's corners.
std::vector<TriangleColour> coloursOf(aiMesh const& mesh, SmoothedMesh const& whole)
{
    std::vector<TriangleColour> colours;
    if (!mesh.HasVertexColors(0)) return colours;
    auto const* const corners = mesh.mColors[0];
    for (std::size_t i = 0; i + 2 < whole.triangles.size(); i += 3) {
        aiColor4D sum;
        for (std::size_t k = 0; k < 3; ++k) sum += corners[whole.sources[whole.triangles[i + k]]];
        colours.push_back({{byteOf(sum.r / 3), byteOf(sum.g / 3), byteOf(sum.b / 3), byteOf(sum.a / 3)}});
    }
    return colours;
}

void makeFew(std::vector<TriangleColour>& colours)
{
    for (unsigned short step = 2; step <= 128; step = static_cast<unsigned short>(2 * step)) {
        auto distinct = colours;
        std::ranges::sort(distinct);
        distinct.erase(std::ranges::unique(distinct).begin(), distinct.end());
        if (distinct.size() <= MostPatches) break;
        for (auto& colour : colours)
            for (std::size_t k = 0; colour && k < colour->size(); ++k) {
                auto& channel = (*colour)[k];
                channel = static_cast<unsigned short>(std::min(channel / step * step + step / 2, 255));
            }
    }
}

class PatchMaker
{
public:
    PatchMaker(aiMesh const& mesh, SmoothedMesh const& whole) : Mesh(mesh), Whole(whole) {}

    void add(MeshPatch& patch, std::uint32_t point)
    {
        auto const [entry, isNew] =
            Numbers[&patch].try_emplace(point, static_cast<std::uint32_t>(patch.points.size() / 3));
        patch.triangles.push_back(entry->second);
        if (!isNew) return;
        auto const from = std::size_t{3} * point;
        for (std::size_t k = 0; k < 3; ++k) {
            patch.points.push_back(Whole.points[from + k]);
            patch.normals.push_back(Whole.normals[from + k]);
        }
        if (!Mesh.HasTextureCoords(0)) return;
        auto const& uv = Mesh.mTextureCoords[0][Whole.sources[point]];
        for (float const x : {uv.x, uv.y}) patch.textureCoordinates.push_back(std::isfinite(x) ? x : 0.0f);
    }

private:
    aiMesh const& Mesh;
    SmoothedMesh const& Whole;
    std::map<MeshPatch*, std::unordered_map<std::uint32_t, std::uint32_t>> Numbers;
};
} // namespace

unsigned short byteOf(float channel)
{
    return static_cast<unsigned short>(
        std::lround(255.0f * (channel > 0.0f ? std::min(channel, 1.0f) : 0.0f)));
}

Colour colourOf(aiColor4D const& colour)
{
    return {byteOf(colour.r), byteOf(colour.g), byteOf(colour.b)};
}

std::vector<MeshPatch> patchesOf(aiMesh const& mesh, std::vector<TriangleColour> const& own)
{
    if (!(mesh.mPrimitiveTypes & aiPrimitiveType_TRIANGLE)) return {};
    auto const whole = normalsOf(mesh);
    if (whole.triangles.empty()) return {};
    std::map<TriangleColour, MeshPatch> patches;
    auto colours = 3 * own.size() == whole.triangles.size() ? own : coloursOf(mesh, whole);
    makeFew(colours);
    PatchMaker maker(mesh, whole);
    for (std::size_t i = 0; i < whole.triangles.size(); ++i)
        maker.add(patches[colours.empty() ? TriangleColour() : colours[i / 3]], whole.triangles[i]);
    std::vector<MeshPatch> made;
    for (auto& [colour, patch] : patches) {
        if (colour) {
            patch.colour = Colour{(*colour)[0], (*colour)[1], (*colour)[2]};
            if ((*colour)[3] < 255) patch.alpha = (*colour)[3];
        }
        made.push_back(std::move(patch));
    }
    return made;
}

void addCurvesAndPoints(aiMesh const& mesh, BrepBody& body)
{
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        auto const& face = mesh.mFaces[i];
        std::vector<float> points;
        for (unsigned k = 0; k < face.mNumIndices && face.mNumIndices <= 2; ++k) {
            if (face.mIndices[k] >= mesh.mNumVertices || !isFinite(mesh.mVertices[face.mIndices[k]])) break;
            auto const& point = mesh.mVertices[face.mIndices[k]];
            points.insert(points.end(), {point.x, point.y, point.z});
        }
        if (points.size() == 6)
            body.AddEdge(NarMeta::HashId(body.id, "edge", i), points).colour = body.colour;
        else if (points.size() == 3)
            body.AddVertex(NarMeta::HashId(body.id, "vertex", i), {points[0], points[1], points[2]});
    }
    // Points that nothing connects come without faces.
    if (mesh.mNumFaces > 0) return;
    for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        auto const& point = mesh.mVertices[i];
        if (isFinite(point))
            body.AddVertex(NarMeta::HashId(body.id, "vertex", i), {point.x, point.y, point.z});
    }
}
} // namespace NarMetaInfra
