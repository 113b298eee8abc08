#pragma once

#include "StepDrawings.h"

namespace NarMetaInfra
{
/// A saved view: a drawing of the part with a camera, and what it shows.
struct StepView {
    int model = 0;   ///< entity of the drawing
    int product = 0; ///< in whose coordinates it stands; 0 if the file does not say
    std::wstring name;
    NarMetaPmi::PMICamera camera;
    std::vector<NarMetaPmi::PMIClippingPlane> clippings;
    std::vector<int> items;    ///< entities drawn, in file order, without those that only this view hides
    std::vector<int> products; ///< product definitions whose shape is drawn; empty if the file names none
    bool isDefault = false;
};

/// The drawings of a file that have a camera.
class StepViews
{
public:
    StepViews(StepEntities const& entities, StepProducts const& products, StepDrawings const& drawings);

    std::vector<StepView> const& saved() const { return Views; }

private:
    StepView readView(int model, int camera) const;
    NarMetaPmi::PMICamera readCamera(int camera, StepGeometry const& geometry) const;
    void readClippings(int camera, StepGeometry const& geometry, StepView& view) const;
    void addClipping(int shape, StepGeometry const& geometry, StepView& view, int depth) const;
    std::set<int> hiddenIn(int model) const;

    StepEntities const& Entities;
    StepProducts const& Products;
    StepDrawings const& Drawings;
    std::vector<StepView> Views;
};
} // namespace NarMetaInfra
