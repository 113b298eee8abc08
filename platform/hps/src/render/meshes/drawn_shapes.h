// Every kind of geometry brought to the few shapes that meshes are made of.
#pragma once
#include "geometry_records.h"
#include "tessellation_nurbs.h"
#include <functional>
#include <hps/CylinderAttributeKit.h>
#include <hps/SphereAttributeKit.h>

namespace HPS::render
{

/// How finely what is curved is broken up.
struct Fineness {
    scene::CurveLimits curves;
    scene::SurfaceLimits surfaces;
    unsigned cylinderFacets = 30, sphereFacets = 30;
    Cylinder::Orientation orientation = Cylinder::Orientation::Default;

    bool operator==(Fineness const&) const = default;
};

Fineness finenessOf(CurveAttributeData const& curves, NURBSSurfaceAttributeData const& surfaces,
                    CylinderAttributeData const& cylinders, SphereAttributeData const& spheres);

/// What a kind of geometry is drawn as; a kind may be several.
struct DrawnAs {
    bool faces = false;   ///< and edges and vertices of those
    bool chains = false;  ///< lines
    bool markers = false;
    bool text = false;
    bool scenery = false; ///< acts on what is drawn: lights, sections
    bool curved = false;  ///< depends on the fineness
};
DrawnAs drawnAs(Type kind);

/// A geometry, or the one that a reference shows with the way from there.
struct Shown {
    scene::GeometryRecord const* geometry = nullptr; ///< no reference; null if there is nothing
    MatrixKit const* matrix = nullptr;               ///< null: none
};
Shown shownBy(scene::GeometryRecord const& geometry);

/// The faces of a geometry; null for a kind that has none. `work` may hold them: the result lasts as long as
/// both stay. Faces of four corners stand for the cells of a mesh.
ShellData const* facesOf(Shown const& shown, Fineness const& fineness, ShellData& work);

/// Calls use(points) for each chain of a geometry of lines. Infinite lines are no chains.
void forEachChain(Shown const& shown, Fineness const& fineness,
                  std::function<void(std::span<Point const>)> const& use);

} // namespace HPS::render
