#pragma once

namespace MoraCore
{

/// Icon of a tree node. The numbers are fixed: plug-ins pass them.
enum class TreeItemStyles : int {
    None = 0,
    Root = 1,
    Assembly = 2,
    Part = 3,
    Annotations = 4,
    PmiGroup = 5,
    Views = 6,
    View = 7,
    Captures = 8,
    Capture = 9,
    Geometry = 10,
    DrawingSheets = 11,
    Mesh = 12,
    Wire = 13,
    PointSet = 14,
    AnnotationSet = 17, ///< also a picture of annotations
    Note = 22,
    Dimension = 23,
    AngularDimension = 25,
    DiameterDimension = 26,
    RadiusDimension = 27,
    Roughness = 29,
    Datum = 31,
    NoTolerance = 32, ///< a tolerance whose data is missing
    Tolerance = 33,   ///< a tolerance of no known kind
    Parallelism = 41,
    Circularity = 44,
    CircularRunout = 45,
    Concentricity = 46,
    Cylindricity = 50,
    Flatness = 53,
    Angularity = 59,
    Perpendicularity = 60,
    Position = 61,
    LineProfile = 62,
    SurfaceProfile = 63,
    Straightness = 69,
    Symmetry = 70,
    TotalRunout = 72,
    Body = 100,
    Face = 101,
    Edge = 102,
    Vertex = 103,
    Feature = 104,
    MissingPart = 116,
    DrawingSheet = 126,
};

} // namespace MoraCore
