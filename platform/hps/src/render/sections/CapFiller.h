#pragma once
#include "Outline.h"

class GLUtesselator;

namespace HPS::render
{

/// Fills outlines with triangles.
class CapFiller
{
public:
    CapFiller();
    ~CapFiller();
    CapFiller(CapFiller const&) = delete;
    CapFiller& operator=(CapFiller const&) = delete;

    /// Three corners a triangle, counter-clockwise seen from where the plane is positive. Where all solid
    /// loops have the material on one side, a loop within a loop is a hollow or another body, as it runs;
    /// otherwise every second one is a hollow.
    std::vector<Vec3> fill(Outline const& outline, CutPlane const& plane);

private:
    GLUtesselator* tessellator_; ///< ours
};

/// Of triangles, three corners each.
double areaOf(std::vector<Vec3> const& triangles);

} // namespace HPS::render
