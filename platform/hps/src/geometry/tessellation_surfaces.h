// Spheres, cylinders and meshes as triangles.
#pragma once
#include <hps/Cuboid.h>
#include <hps/CylinderKit.h>
#include <hps/MeshKit.h>
#include <hps/SphereKit.h>

namespace HPS::scene
{

// Triangles with a normal at each point, counter-clockwise seen from outside.
struct Facets {
    std::vector<Point> points;
    std::vector<Vector> normals; // as many as points
    // The surface's own coordinates at each point, two numbers from 0 to 1, or none. Around a sphere and
    // along its meridian from south to north; around a cylinder and along its chain; along the columns and
    // rows of a mesh; along u and v of a NURBS surface.
    std::vector<float> parameters;
    std::vector<std::uint32_t> triangles;
};

// `around` facets around the equator, at least 3, and half as many from pole to pole.
Facets tessellate(SphereData const& sphere, unsigned around);
SimpleCuboid extentOf(SphereData const& sphere);

// Rings stand square to the chain, at corners square to its bisector. Caps have points of their own.
Facets tessellate(CylinderData const& cylinder, unsigned around);
SimpleCuboid extentOf(CylinderData const& cylinder);

// Normals that are not given are averaged over the faces.
Facets tessellate(MeshData const& mesh);

} // namespace HPS::scene
