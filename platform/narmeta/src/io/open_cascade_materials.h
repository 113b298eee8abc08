#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "material_details.h"

#include <narmeta/visu/MaterialContainer.h>

#include <unordered_map>

#include <Image_Texture.hxx>
#include <XCAFDoc_VisMaterial.hxx>

class QByteArray;

namespace NarMetaInfra
{
/// Turns the kernel's materials into the model's, each once. Images are decoded, each once, since they may
/// stand in the middle of another file.
class MaterialMaker
{
public:
    explicit MaterialMaker(MaterialDetailMap details = {}) : Details(std::move(details)) {}

    /// Null for a null material.
    std::shared_ptr<NarMetaVisu::Material> of(Handle(XCAFDoc_VisMaterial) const& material);
    /// What the coordinates of faces with this material have to go through; null for nothing.
    TextureUse const* coordinateUse(Handle(XCAFDoc_VisMaterial) const& material) const;

    void addTo(NarMetaVisu::MaterialContainer& container) const;
    /// Images that lie in files of their own.
    std::vector<std::filesystem::path> const& files() const { return Files; }
    /// One line for each image that can't be read.
    std::vector<std::string> const& warnings() const { return Warnings; }

private:
    using TexturePointer = std::shared_ptr<NarMetaVisu::Texture>;
    using ImagePointer = std::shared_ptr<NarMetaVisu::TextureImage>;
    enum class Channel { All, Red, Smoothness };

    NarMetaVisu::Material::Settings metallic(XCAFDoc_VisMaterial const& material,
                                             MaterialDetails const& details);
    NarMetaVisu::Material::Settings common(XCAFDoc_VisMaterialCommon const& material,
                                           MaterialDetails const& details);
    void add(NarMetaVisu::Material::Textures& list, Handle(Image_Texture) const& source,
             std::optional<TextureUse> const& use, Channel channel = Channel::All,
             std::optional<TextureUse> const& opacity = {});
    ImagePointer imageOf(Handle(Image_Texture) const& source);
    ImagePointer transparentOf(ImagePointer const& image, TextureUse const& opacity);
    QByteArray bytesOf(Handle(Image_Texture) const& source) const;
    std::wstring unique(std::wstring name);
    MaterialDetails const* detailsOf(Handle(XCAFDoc_VisMaterial) const& material) const;

    MaterialDetailMap Details;
    std::unordered_map<XCAFDoc_VisMaterial const*, std::shared_ptr<NarMetaVisu::Material>> Materials;
    std::map<std::string, ImagePointer> Images;
    std::map<std::string, TexturePointer> Textures; // by image, channel and wrapping
    std::map<std::wstring, int> Names;
    std::vector<std::filesystem::path> Files;
    std::vector<std::string> Warnings;
};
} // namespace NarMetaInfra
