#pragma once

// Only for sources of this folder that see the mesh library.

#include <narmeta/infra/BrepBody.h>

#include <array>

#include <assimp/color4.h>

struct aiMesh;

namespace NarMetaInfra
{
/// Triangles of one colour.
struct MeshPatch {
    std::vector<float> points, normals, textureCoordinates;
    std::vector<std::uint32_t> triangles;
    std::optional<Colour> colour; ///< of its own, beside the mesh's material
    std::optional<unsigned short> alpha;
};

/// Red, green, blue and alpha as bytes; nothing where the mesh's material holds.
using TriangleColour = std::optional<std::array<unsigned short, 4>>;

/// The triangles of a mesh, with normals. Where they or its points have colours of their own, triangles of
/// one mean colour make a patch each; colours that hardly differ become one if there would be too many.
/// @p colours: of the triangles, if the file has them; a list that does not fit the mesh counts for none.
std::vector<MeshPatch> patchesOf(aiMesh const& mesh, std::vector<TriangleColour> const& colours = {});

/// Lines become edges of the body, points its vertices.
void addCurvesAndPoints(aiMesh const& mesh, BrepBody& body);

unsigned short byteOf(float channel);
Colour colourOf(aiColor4D const& colour);
} // namespace NarMetaInfra
