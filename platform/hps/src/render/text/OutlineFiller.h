#pragma once
#include <array>
#include <cstdint>
#include <span>
#include <vector>

class GLUtesselator;

namespace HPS::render
{

/// A filled area of the plane, three indices a triangle. No owner but its holder.
struct FlatMesh {
    struct Corner {
        float x, y;
    };
    std::vector<Corner> corners;
    std::vector<std::uint32_t> indices;

    void addQuad(std::array<Corner, 4> const& around);
};

/// Fills closed contours by the non-zero rule: contours that run the other way are holes.
class OutlineFiller
{
public:
    OutlineFiller();
    ~OutlineFiller();
    OutlineFiller(OutlineFiller const&) = delete;
    OutlineFiller& operator=(OutlineFiller const&) = delete;

    using Contour = std::vector<FlatMesh::Corner>;

    /// Adds the area within the contours to `mesh`. Contours of fewer than three corners enclose nothing.
    void fill(std::span<Contour const> contours, FlatMesh& mesh);

private:
    friend struct OutlineFillerCalls;
    GLUtesselator* tessellator_; ///< ours
    FlatMesh* mesh_ = nullptr;   ///< while `fill` runs
};

} // namespace HPS::render
