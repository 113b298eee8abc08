#include "mesh_library_model.h"

#include "matrix_product.h"
#include "mesh_library_faces.h"
#include "text_encoding.h"
#include "texture_images.h"

#include <algorithm>
#include <cmath>

#include <QByteArray>

#include <assimp/material.h>
#include <assimp/scene.h>

namespace NarMetaInfra
{
namespace
{
std::wstring textOf(aiString const& text)
{
    return trimmed(wideFromBytes({text.C_Str(), text.length}));
}

// The library's matrices are for column vectors.
Matrix matrixOf(aiMatrix4x4 const& m)
{
    return {m.a1, m.b1, m.c1, m.d1, m.a2, m.b2, m.c2, m.d2, m.a3, m.b3, m.c3, m.d3, m.a4, m.b4, m.c4, m.d4};
}

// What an importer calls nodes and materials where the file has no name.
bool isMadeUp(std::wstring const& name)
{
    return name.starts_with(L"<") || name.starts_with(L"$") || name == L"DefaultMaterial";
}
} // namespace

SceneTranslator::SceneTranslator(aiScene const& scene, std::filesystem::path folder, std::wstring title,
                                 Matrix const& placement, ZELProductStructure& model)
    : Scene(scene), Folder(std::move(folder)), Title(std::move(title)), Placement(placement), Model(model)
{
}

std::wstring SceneTranslator::unique(std::wstring pid)
{
    auto const count = ++Pids[pid];
    return count == 1 ? pid : unique(pid + L"~" + std::to_wstring(count));
}

std::wstring SceneTranslator::nameOf(aiString const& text) const
{
    auto const name = textOf(text);
    if (auto const known = Names.find(name); known != Names.end()) return known->second;
    return isMadeUp(name) ? std::wstring() : name;
}

bool SceneTranslator::translate()
{
    if (!Scene.mRootNode || !hasMeshes(*Scene.mRootNode)) return false;
    auto const& root = *Scene.mRootNode;
    Model.SetProductName(Title);
    auto const pid = unique(idText(Title));
    Model.SetPID(pid);
    auto const placement = combined(matrixOf(root.mTransformation), Placement);
    if (root.mNumMeshes > 0) Model.AddRootInstance(placePart(root, pid, placement));
    for (unsigned i = 0; i < root.mNumChildren; ++i)
        if (hasMeshes(*root.mChildren[i]))
            Model.AddRootInstance(makeInstance(*root.mChildren[i], pid, placement));
    return std::ranges::any_of(Model.GetReferences(), [](auto const& reference) {
        return reference->GetSG() && reference->GetSG()->HasData();
    });
}

bool SceneTranslator::hasMeshes(aiNode const& node) const
{
    if (node.mNumMeshes > 0) return true;
    return std::any_of(node.mChildren, node.mChildren + node.mNumChildren,
                       [this](aiNode const* child) { return hasMeshes(*child); });
}

SceneTranslator::InstancePointer
SceneTranslator::makeInstance(aiNode const& node, std::wstring const& ownerPid, Matrix const& outer)
{
    auto const matrix = combined(matrixOf(node.mTransformation), outer);
    bool const isAssembly = std::any_of(node.mChildren, node.mChildren + node.mNumChildren,
                                        [this](aiNode const* child) { return hasMeshes(*child); });
    if (!isAssembly) return placePart(node, ownerPid, matrix);
    auto name = nameOf(node.mName);
    if (name.empty()) name = L"group";
    auto const pid = unique(idText(name));
    auto const assembly = Model.AddReference(ZELReference::Kind::Assembly, pid, name);
    if (node.mNumMeshes > 0) assembly->AddInstance(placePart(node, pid, IdentityMatrix));
    for (unsigned i = 0; i < node.mNumChildren; ++i)
        if (hasMeshes(*node.mChildren[i]))
            assembly->AddInstance(makeInstance(*node.mChildren[i], pid, IdentityMatrix));
    auto const instance = std::make_shared<ZELInstance>(assembly, unique(ownerPid + L"." + pid), name);
    instance->SetTransform(matrix);
    return instance;
}

SceneTranslator::InstancePointer SceneTranslator::placePart(aiNode const& node, std::wstring const& ownerPid,
                                                            Matrix const& matrix)
{
    auto const part = partOf(node);
    std::wstring pid;
    part->GetPID(pid);
    auto name = nameOf(node.mName);
    if (name.empty()) name = part->GetReferenceName();
    auto const instance = std::make_shared<ZELInstance>(part, unique(ownerPid + L"." + pid), name);
    instance->SetTransform(matrix);
    return instance;
}

SceneTranslator::ReferencePointer SceneTranslator::partOf(aiNode const& node)
{
    std::vector<unsigned> const meshes(node.mMeshes, node.mMeshes + node.mNumMeshes);
    auto& part = Parts[meshes];
    if (part) return part;
    auto name = meshes.size() == 1 ? nameOf(Scene.mMeshes[meshes.front()]->mName) : std::wstring();
    if (name.empty()) name = nameOf(node.mName);
    if (name.empty()) name = Title;
    part = Model.AddReference(ZELReference::Kind::Part, unique(idText(name)), name);
    std::vector<BrepBody> bodies;
    FaceSurfaces surfaces;
    for (std::size_t i = 0; i < meshes.size(); ++i) {
        auto body =
            bodyOf(*Scene.mMeshes[meshes[i]], NarMeta::HashId(part->GetUniqueID(), "mesh", i), surfaces);
        if (!body.faces.empty() || !body.edges.empty() || !body.vertices.empty())
            bodies.push_back(std::move(body));
    }
    makeGraphical(*part, std::move(bodies), surfaces);
    return part;
}

BrepBody SceneTranslator::bodyOf(aiMesh const& mesh, Id id, FaceSurfaces& surfaces)
{
    BrepBody body;
    body.id = id;
    body.name = nameOf(mesh.mName);
    auto const& look = surfaceOf(mesh.mMaterialIndex);
    body.colour = look.colour;
    body.alpha = look.alpha;
    addCurvesAndPoints(mesh, body);
    auto const colours = Colours.find(mesh.mName.C_Str());
    for (auto& patch : colours == Colours.end() ? patchesOf(mesh) : patchesOf(mesh, colours->second)) {
        auto const face = NarMeta::HashId(id, "face", body.faces.size());
        auto& record = body.AddFace(face, patch.points, patch.normals, patch.triangles);
        record.colour = patch.colour;
        record.alpha = patch.alpha;
        if (look.material) surfaces[face] = {look.material, std::move(patch.textureCoordinates)};
    }
    return body;
}

SceneTranslator::Surface const& SceneTranslator::surfaceOf(unsigned number)
{
    auto const [entry, isNew] = Surfaces.try_emplace(number);
    if (!isNew || number >= Scene.mNumMaterials) return entry->second;
    auto const& material = *Scene.mMaterials[number];
    auto& surface = entry->second;
    aiString name;
    material.Get(AI_MATKEY_NAME, name);
    aiColor4D colour;
    // An importer's own grey is no colour of the file.
    if (name.length > 0 && !isMadeUp(textOf(name)) &&
        material.Get(AI_MATKEY_COLOR_DIFFUSE, colour) == AI_SUCCESS) {
        surface.colour = colourOf(colour);
        float opacity = colour.a;
        if (float own = 1.0f; material.Get(AI_MATKEY_OPACITY, own) == AI_SUCCESS)
            opacity = std::min(opacity, own);
        if (opacity < 1.0f) surface.alpha = byteOf(opacity);
    }
    surface.material = textured(number, surface);
    return surface;
}

std::shared_ptr<NarMetaVisu::Material> SceneTranslator::textured(unsigned number, Surface const& surface)
{
    using NarMetaVisu::Texture;
    auto const& source = *Scene.mMaterials[number];
    aiString path;
    if (source.GetTexture(aiTextureType_DIFFUSE, 0, &path) != AI_SUCCESS) return nullptr;
    QByteArray bytes;
    if (auto const* const inside = Scene.GetEmbeddedTexture(path.C_Str()); inside && inside->mHeight == 0) {
        bytes =
            QByteArray(reinterpret_cast<char const*>(inside->pcData), static_cast<qsizetype>(inside->mWidth));
    } else {
        OtherFiles.push_back(Folder / path.C_Str());
        bytes = imageBytes(OtherFiles.back());
    }
    auto image = decodeImage(bytes);
    if (!image) {
        Warnings.push_back(L"the image \"" + textOf(path) + L"\" of a texture is missing or can't be read");
        return nullptr;
    }
    Texture::Settings lies;
    lies.image = std::move(image);
    lies.mapping = Texture::TextureMappingMode::Stored;
    lies.method = Texture::TextureMethod::Modulate;
    lies.wrap = {Texture::TextureWrapMode::Repeat, Texture::TextureWrapMode::Repeat};
    auto const suffix = std::to_wstring(number);
    auto const texture = std::make_shared<Texture>(L"image " + suffix, std::move(lies));
    NarMetaVisu::Material::Settings settings;
    settings.diffuse.colour = surface.colour;
    settings.diffuseColorTextures.push_back(texture);
    auto made = std::make_shared<NarMetaVisu::Material>(L"material " + suffix, std::move(settings));
    Materials.Add(texture);
    Materials.Add(made);
    return made;
}
} // namespace NarMetaInfra
