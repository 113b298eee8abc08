#include "MaterialTable.h"
#include "Instance.h"
#include <algorithm>
#include <atomic>
#include <limits>
#include <string_view>

namespace HPS::render
{
namespace
{

std::uint64_t nextVersion()
{
    static std::atomic<std::uint64_t> versions{0};
    return ++versions;
}

// Rows have no gaps, so that their bytes stand for them.
template <class Row> std::string_view bytesOf(Row const* rows, std::size_t count)
{
    return {reinterpret_cast<char const*>(rows), count * sizeof(Row)};
}

std::size_t hashOf(MaterialRow const& row)
{
    return std::hash<std::string_view>()(bytesOf(&row, 1));
}

} // namespace

void MaterialTable::clear()
{
    rows_.assign(1, MaterialRow{});
    layers_.clear();
    kinds_.assign(1, SurfaceKind{});
    rowsByHash_.clear();
    rowsByHash_.emplace(hashOf(rows_.front()), 0);
    runsOfLayers_.clear();
    palettes_.clear();
    version_ = nextVersion();
}

SurfaceId MaterialTable::intern(SurfaceMaterial const& material)
{
    if (material.plain()) return {};
    std::uint16_t const kind = kindOf(material.kind);
    if (kind == 0) return {};
    MaterialRow row = material.row;
    row.firstLayer = layersOf(material.layers);
    return {rowOf(row), kind};
}

std::uint32_t MaterialTable::rowOf(MaterialRow const& row)
{
    std::size_t const hash = hashOf(row);
    auto const [first, last] = rowsByHash_.equal_range(hash);
    for (auto found = first; found != last; ++found)
        if (rows_[found->second] == row) return found->second;
    if (rows_.size() == materialRowLimit) return 0;
    auto const number = std::uint32_t(rows_.size());
    rows_.push_back(row);
    rowsByHash_.emplace(hash, number);
    version_ = nextVersion();
    return number;
}

std::uint32_t MaterialTable::internPalette(std::vector<MaterialRow> const& rows)
{
    if (rows_.size() + rows.size() > materialRowLimit) return 0;
    auto const [found, isNew] =
        palettes_.try_emplace(std::string(bytesOf(rows.data(), rows.size())), std::uint32_t(rows_.size()));
    if (isNew) {
        rows_.insert(rows_.end(), rows.begin(), rows.end());
        version_ = nextVersion();
    }
    return found->second;
}

std::uint32_t MaterialTable::layersOf(std::vector<LayerRow> const& layers)
{
    if (layers.empty()) return 0;
    auto const [found, isNew] = runsOfLayers_.try_emplace(std::string(bytesOf(layers.data(), layers.size())),
                                                          std::uint32_t(layers_.size()));
    if (isNew) {
        layers_.insert(layers_.end(), layers.begin(), layers.end());
        version_ = nextVersion();
    }
    return found->second;
}

std::uint16_t MaterialTable::kindOf(SurfaceKind const& kind)
{
    auto const found = std::find(kinds_.begin(), kinds_.end(), kind);
    if (found != kinds_.end()) return std::uint16_t(found - kinds_.begin());
    if (kinds_.size() > std::numeric_limits<std::uint16_t>::max()) return 0;
    kinds_.push_back(kind);
    return std::uint16_t(kinds_.size() - 1);
}

SurfaceMaterial placed(SurfaceMaterial material, MeshPlace const& mesh)
{
    if (material.layers.empty()) return material;
    MaterialRow& row = material.row;
    bool projects = false, reads = false;
    for (LayerRow const& layer : material.layers) {
        bool const byVertex = layer.source == LayerSource::Parameters;
        projects = projects || !byVertex || !mesh.complete;
        reads = reads || byVertex;
    }
    reads = reads && mesh.hasParameters;
    material.kind.features.set(Feature::Projected, projects).set(Feature::Parameters, reads);
    if (reads) row.parameters = mesh.parameters;
    if (projects && !mesh.box.empty()) {
        Vec3 const centre = mesh.box.centre();
        float longest = 0;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            row.low[axis] = mesh.box.low[axis];
            longest = std::max(longest, mesh.box.high[axis] - mesh.box.low[axis]);
        }
        float const height = mesh.box.high[1] - mesh.box.low[1];
        row.scale = longest > 0 ? 1 / longest : 1;
        row.inverseHeight = height > 0 ? 1 / height : 1;
        row.centre[0] = float(centre.x);
        row.centre[1] = float(centre.y);
        row.centre[2] = float(centre.z);
    }
    return material;
}

} // namespace HPS::render
