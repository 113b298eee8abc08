#pragma once

#include <narmeta/visu/Material.h>

#include <map>

namespace NarMetaVisu
{

/// The materials and textures of the loaded model, by name; one container for the process.
class MaterialContainer
{
public:
    static MaterialContainer& Instance();

    void Add(std::shared_ptr<Material> material);
    void Add(std::shared_ptr<Texture> texture);
    std::map<std::wstring, std::shared_ptr<Material>> const& GetMaterials() const { return materials_; }
    std::map<std::wstring, std::shared_ptr<Texture>> const& GetTextures() const { return textures_; }
    void Clear();

private:
    std::map<std::wstring, std::shared_ptr<Material>> materials_;
    std::map<std::wstring, std::shared_ptr<Texture>> textures_;
};

} // namespace NarMetaVisu
