#include "closed_mesh.h"
#include <bit>
#include <numeric>
#include <vector>

namespace HPS::render
{
namespace
{

// The finishing step of the splitmix64 generator: every bit of the input reaches every bit of the output.
std::uint64_t mixed(std::uint64_t value)
{
    value = (value ^ (value >> 30)) * 0xbf58476d1ce4e5b9u;
    value = (value ^ (value >> 27)) * 0x94d049bb133111ebu;
    return value ^ (value >> 31);
}

std::uint64_t hashOf(float const (&position)[3])
{
    std::uint64_t hash = 0x9e3779b97f4a7c15u;
    // Adding zero makes one zero of the two that floats have.
    for (float const coordinate : position)
        hash = mixed(hash + std::bit_cast<std::uint32_t>(coordinate + 0.0f));
    return hash;
}

/// Finds the first vertex at each place.
class Places
{
public:
    explicit Places(std::span<FaceVertex const> vertices)
        : hashes_(vertices.size()),
          first_(vertices.size()),
          slots_(std::bit_ceil(2 * vertices.size() + 1), Empty)
    {
        std::size_t const mask = slots_.size() - 1;
        for (std::uint32_t i = 0; i < vertices.size(); ++i) {
            hashes_[i] = hashOf(vertices[i].position);
            std::size_t slot = hashes_[i] & mask;
            while (slots_[slot] != Empty && hashes_[slots_[slot]] != hashes_[i]) slot = (slot + 1) & mask;
            if (slots_[slot] == Empty) slots_[slot] = i;
            first_[i] = slots_[slot];
        }
    }

    std::uint64_t hash(std::uint32_t vertex) const { return hashes_[vertex]; }
    std::uint32_t first(std::uint32_t vertex) const { return first_[vertex]; }

private:
    static constexpr std::uint32_t Empty = ~0u;
    std::vector<std::uint64_t> hashes_;
    std::vector<std::uint32_t> first_;
    std::vector<std::uint32_t> slots_; ///< open addressing: vertices by their hashes
};

/// Which vertices hang together.
class Parts
{
public:
    explicit Parts(std::size_t count) : parent_(count) { std::iota(parent_.begin(), parent_.end(), 0u); }

    std::uint32_t of(std::uint32_t vertex)
    {
        while (parent_[vertex] != vertex) vertex = parent_[vertex] = parent_[parent_[vertex]];
        return vertex;
    }
    void join(std::uint32_t a, std::uint32_t b) { parent_[of(a)] = of(b); }

private:
    std::vector<std::uint32_t> parent_;
};

bool isShut(Places const& places, std::span<std::uint32_t const> indices)
{
    std::uint64_t open = 0;
    for (std::size_t i = 0; i < indices.size(); i += 3)
        for (std::size_t corner = 0; corner < 3; ++corner) {
            std::uint64_t const from = places.hash(indices[i + corner]);
            std::uint64_t const to = places.hash(indices[i + (corner + 1) % 3]);
            open += mixed(from + 3 * to) - mixed(to + 3 * from);
        }
    return open == 0;
}

} // namespace

bool boundsVolumes(std::span<FaceVertex const> vertices, std::span<std::uint32_t const> indices)
{
    if (indices.empty()) return false;
    Places const places(vertices);
    if (!isShut(places, indices)) return false;

    Parts parts(vertices.size());
    for (std::size_t i = 0; i < indices.size(); i += 3) {
        std::uint32_t const a = places.first(indices[i]);
        parts.join(a, places.first(indices[i + 1]));
        parts.join(a, places.first(indices[i + 2]));
    }
    auto const& base = vertices[indices[0]].position;
    auto arm = [&](std::uint32_t vertex) {
        auto const& p = vertices[vertex].position;
        return Vec3{double(p[0]) - base[0], double(p[1]) - base[1], double(p[2]) - base[2]};
    };
    std::vector<double> volumes(vertices.size());
    for (std::size_t i = 0; i < indices.size(); i += 3)
        volumes[parts.of(places.first(indices[i]))] +=
            dot(arm(indices[i]), cross(arm(indices[i + 1]), arm(indices[i + 2])));
    for (std::uint32_t const index : indices)
        if (volumes[parts.of(places.first(index))] <= 0) return false;
    return true;
}

} // namespace HPS::render
