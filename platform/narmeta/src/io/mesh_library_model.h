#pragma once

// Only for sources of this folder that see the mesh library.

#include "ModelReader.h"
#include "mesh_library_faces.h"
#include "visualisation_nodes.h"

#include <narmeta/visu/MaterialContainer.h>

#include <map>

struct aiMesh;
struct aiNode;
struct aiScene;
struct aiString;

namespace NarMetaInfra
{
/// Fills a model from a scene of the mesh library: nodes with meshes become instances, nodes that use the
/// same meshes share a part, nodes with others below them are assemblies.
class SceneTranslator
{
public:
    /// @p folder: where images are looked for. @p placement: of everything, for row vectors; it takes the
    /// library's unit and direction to millimetres and z upwards.
    SceneTranslator(aiScene const& scene, std::filesystem::path folder, std::wstring title,
                    Matrix const& placement, ZELProductStructure& model);

    /// In place of what the library calls nodes and meshes.
    void setNames(std::map<std::wstring, std::wstring> names) { Names = std::move(names); }
    /// Of the triangles of meshes, by the names that the library gives these.
    void setColours(std::map<std::string, std::vector<TriangleColour>> colours)
    {
        Colours = std::move(colours);
    }
    /// False if the scene holds nothing that can be shown.
    bool translate();
    NarMetaVisu::MaterialContainer takeMaterials() { return std::move(Materials); }
    std::vector<std::wstring> const& warnings() const { return Warnings; }
    /// Images that were looked for beside the file.
    std::vector<std::filesystem::path> const& otherFiles() const { return OtherFiles; }

private:
    using ReferencePointer = std::shared_ptr<ZELReference>;
    using InstancePointer = std::shared_ptr<ZELInstance>;
    struct Surface {
        std::optional<Colour> colour;
        std::optional<unsigned short> alpha;
        std::shared_ptr<NarMetaVisu::Material> material;
    };

    bool hasMeshes(aiNode const& node) const;
    InstancePointer makeInstance(aiNode const& node, std::wstring const& ownerPid, Matrix const& outer);
    InstancePointer placePart(aiNode const& node, std::wstring const& ownerPid, Matrix const& matrix);
    ReferencePointer partOf(aiNode const& node);
    BrepBody bodyOf(aiMesh const& mesh, Id id, FaceSurfaces& surfaces);
    void addTriangles(aiMesh const& mesh, BrepBody& body, FaceSurfaces& surfaces);
    Surface const& surfaceOf(unsigned material);
    std::shared_ptr<NarMetaVisu::Material> textured(unsigned material, Surface const& surface);
    std::wstring unique(std::wstring pid);
    /// Of a node or a mesh; empty if the file gives none.
    std::wstring nameOf(aiString const& text) const;

    aiScene const& Scene;
    std::filesystem::path Folder;
    std::wstring Title;
    Matrix Placement;
    ZELProductStructure& Model;
    std::map<std::vector<unsigned>, ReferencePointer> Parts; // by the numbers of the meshes
    std::map<unsigned, Surface> Surfaces;
    std::map<std::wstring, int> Pids;
    std::map<std::wstring, std::wstring> Names;
    std::map<std::string, std::vector<TriangleColour>> Colours;
    NarMetaVisu::MaterialContainer Materials;
    std::vector<std::wstring> Warnings;
    std::vector<std::filesystem::path> OtherFiles;
};
} // namespace NarMetaInfra
