#pragma once
#include "MeshBuilder.h"
#include "PickShape.h"
#include <unordered_map>

namespace HPS::selection
{

/// The shapes of geometries, made when first searched and kept for all that show them until they change.
class PickShapes
{
public:
    using Shape = PickShape const&;
    /// All are valid until the same is asked of another geometry. Curved kinds have a shape for each
    /// fineness.
    Shape faces(scene::GeometryRecord const& geometry, render::Fineness const& fineness);
    Shape edges(scene::GeometryRecord const& geometry, render::Fineness const& fineness,
                render::EdgeChoice const& choice);
    Shape vertices(scene::GeometryRecord const& geometry, render::Fineness const& fineness);
    Shape lines(scene::GeometryRecord const& geometry, render::Fineness const& fineness);

    /// The geometry in the slot is another now, or gone.
    void drop(scene::SlotIndex geometry) { kept_.erase(geometry); }
    void dropAll() { kept_.clear(); }
    std::size_t bytes() const;

private:
    enum class Kind : std::uint8_t { Faces, Edges, Vertices, Lines };
    struct Kept {
        Kind kind;
        render::EdgeChoice choice;
        render::Fineness fineness; ///< of a curved kind
        std::unique_ptr<PickShape> shape;
    };
    template <class Make> Shape find(scene::GeometryRecord const& geometry, Kind kind,
                                     render::Fineness const& fineness, render::EdgeChoice const& choice,
                                     Make const& make);

    std::unordered_map<scene::SlotIndex, std::vector<Kept>> kept_; ///< few of each geometry
    PickShape borrowedFaces_, borrowedLines_;                      ///< of what is not worth keeping
};

} // namespace HPS::selection
