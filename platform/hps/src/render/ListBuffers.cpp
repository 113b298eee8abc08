#include "ListBuffers.h"
#include "MeshStore.h"
#include "bindings.h"
#include <epoxy/gl.h>

namespace HPS::render
{

std::uint32_t ListBuffers::upload(DrawList const& list)
{
    instances_.create();
    std::uint32_t const uploaded = version_ != list.version ? uploadInstances(list) : 0;
    if (materialsVersion_ != list.materials.version()) {
        materials_.fill(std::span<MaterialRow const>(list.materials.rows()));
        layers_.fill(std::span<LayerRow const>(list.materials.layers()));
        materialsVersion_ = list.materials.version();
    }
    return uploaded;
}

std::uint32_t ListBuffers::uploadInstances(DrawList const& list)
{
    std::span<Instance const> const all(list.instances);
    std::uint32_t uploaded = 0;
    if (sorted_ != list.sorted || all.size() > capacity_) {
        capacity_ = all.size() + all.size() / 8 + 64; // room for what comes late
        instances_.fill(all, capacity_);
        uploaded = std::uint32_t(all.size());
    } else {
        for (auto const& [version, at] : list.patches)
            if (version > version_) {
                instances_.patch(at, all.subspan(at, 1));
                ++uploaded;
            }
    }
    version_ = list.version;
    sorted_ = list.sorted;
    return uploaded;
}

void ListBuffers::bindMaterials() const
{
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, MaterialBinding, materials_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, LayerBinding, layers_.name());
    glBindBufferBase(GL_SHADER_STORAGE_BUFFER, ParameterBinding, MeshStore::instance().parameterBuffer());
}

} // namespace HPS::render
