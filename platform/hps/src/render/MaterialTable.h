#pragma once
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace HPS::render
{

/// What a surface does to light beyond its instance's colour; goes to the graphics device as it is (std430).
/// The shaders read it from materials.glsl.
struct MaterialRow {
    float specular[3] = {1, 1, 1};
    float gloss = 32;

    bool operator==(MaterialRow const&) const = default;
};
static_assert(sizeof(MaterialRow) % 16 == 0);

/// The materials of a draw list, each one once. Row 0 is the plain one.
class MaterialTable
{
public:
    MaterialTable() { clear(); }

    void clear();

    /// The row that equals `material`, a new one if there is none. Row 0 once the table is full.
    std::uint32_t intern(MaterialRow const& material);

    std::vector<MaterialRow> const& rows() const { return rows_; }
    /// Differs whenever the rows do, from those of every other table too.
    std::uint64_t version() const { return version_; }

private:
    std::vector<MaterialRow> rows_;
    std::unordered_multimap<std::size_t, std::uint32_t> byHash_;
    std::uint64_t version_ = 0;
};

} // namespace HPS::render
