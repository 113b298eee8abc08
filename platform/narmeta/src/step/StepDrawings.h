#pragma once

#include "StepGeometry.h"
#include "StepProducts.h"

#include <narmeta/pmi/PMICapture.h>

namespace NarMetaInfra
{
/// Where a drawing stands.
struct StepPlace {
    int product = 0; ///< in whose coordinates; 0 if the file does not say
    StepFrame frame;
    int mapping = 0; ///< item of another drawing that puts it there; 0 if it stands by itself
};

/// An entity in a drawing.
struct StepDrawn {
    int item = 0;
    int context = 0; ///< gives the unit
    StepPlace place;
};

/// The drawings of a file and what stands in them. A drawing may show others, placed like a part in an
/// assembly.
class StepDrawings
{
public:
    StepDrawings(StepEntities const& entities, StepProducts const& products);

    /// Everything drawn, once by itself and once for each item that puts its drawing somewhere.
    std::vector<StepDrawn> const& drawn() const { return Drawn; }
    /// At least one.
    std::vector<StepPlace> placesOf(int drawing) const;
    /// Entities in a drawing and in those that it shows, and those that annotation planes hold.
    std::vector<int> itemsOf(int drawing) const;

    struct Plane {
        int entity = 0;
        std::wstring name;
        NarMetaPmi::PMICamera camera;
    };
    /// The annotation plane that holds an entity; null without one.
    Plane const* planeOf(int item) const;

private:
    void enter(int drawing);
    void readPlane(StepDrawn const& drawn);
    std::vector<int> ownItemsOf(int drawing) const;
    void addItems(int drawing, std::set<int>& seen, std::vector<int>& items) const;
    void addPlaces(int drawing, StepPlace const& inner, int& stepsLeft, std::vector<StepPlace>& places) const;
    int contextOf(int drawing) const { return Entities.argument(drawing, 2, "REPRESENTATION", 2).entity(); }
    int mappedBy(int item) const;

    struct Mapping {
        int drawing = 0; ///< the one that shows
        int item = 0;
    };
    StepEntities const& Entities;
    StepProducts const& Products;
    std::vector<int> Drawings;
    std::set<int> Known;
    std::map<int, std::vector<Mapping>> Mappings; // by the drawing that is shown
    std::vector<StepDrawn> Drawn;
    std::map<int, Plane> Planes;          // by entity
    std::unordered_map<int, int> PlaneOf; // by item
};
} // namespace NarMetaInfra
