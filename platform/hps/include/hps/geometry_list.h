// The kinds of geometry, each by the name that its kit, key and record are built from; what is met most often
// comes first. Records, insertion, search, streams and tests go by this list.
#pragma once

#define HPS_GEOMETRY_KINDS(KIND)                                                                             \
    KIND(Shell)                                                                                              \
    KIND(Line)                                                                                               \
    KIND(Polygon)                                                                                            \
    KIND(Marker)                                                                                             \
    KIND(Text)                                                                                               \
    KIND(DistantLight)                                                                                       \
    KIND(Mesh)                                                                                               \
    KIND(Grid)                                                                                               \
    KIND(NURBSSurface)                                                                                       \
    KIND(Cylinder)                                                                                           \
    KIND(Sphere)                                                                                             \
    KIND(Circle)                                                                                             \
    KIND(CircularWedge)                                                                                      \
    KIND(Ellipse)                                                                                            \
    KIND(NURBSCurve)                                                                                         \
    KIND(CircularArc)                                                                                        \
    KIND(EllipticalArc)                                                                                      \
    KIND(InfiniteLine)                                                                                       \
    KIND(Spotlight)                                                                                          \
    KIND(CuttingSection)                                                                                     \
    KIND(Reference)
