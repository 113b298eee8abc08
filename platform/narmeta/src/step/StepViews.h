#pragma once

#include "StepGeometry.h"
#include "StepShapeAspects.h"

#include <narmeta/pmi/PMICapture.h>

#include <map>

namespace NarMetaInfra
{
/// A saved view: a drawing of the part with a camera, and what it shows.
struct StepView {
    int model = 0; ///< entity of the drawing
    std::wstring name;
    NarMetaPmi::PMICamera camera;
    std::vector<NarMetaPmi::PMIClippingPlane> clippings;
    std::vector<int> items;    ///< entities drawn, in file order; those of annotation planes among them
    std::vector<int> products; ///< product definitions whose shape is drawn; empty if the file names none
    bool isDefault = false;
};

/// The drawings of a file: which annotations stand in them, in which unit, and from where they are looked at.
class StepViews
{
public:
    StepViews(StepEntities const& entities, StepShapeAspects const& aspects);

    std::vector<StepView> const& saved() const { return Views; }
    /// Entities that stand in any drawing, with the context that gives their unit.
    std::vector<std::pair<int, int>> const& drawn() const { return Drawn; }
    /// Name and camera of the annotation plane that holds an entity; null without one.
    struct Plane {
        int entity = 0;
        std::wstring name;
        NarMetaPmi::PMICamera camera;
    };
    Plane const* planeOf(int item) const;

private:
    std::vector<int> itemsOf(int model) const;
    void readPlanes();
    StepView readView(int model, int camera, StepGeometry const& geometry) const;
    void readClippings(int camera, StepGeometry const& geometry, StepView& view) const;
    void addClipping(int shape, StepGeometry const& geometry, StepView& view, int depth) const;

    StepEntities const& Entities;
    StepShapeAspects const& Aspects;
    std::vector<StepView> Views;
    std::vector<std::pair<int, int>> Drawn;
    std::map<int, Plane> Planes;          // by entity
    std::unordered_map<int, int> PlaneOf; // by item
    std::unordered_map<int, int> ShapeProducts;
};
} // namespace NarMetaInfra
