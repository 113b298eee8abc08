#include "tree_icons.h"

#include "DrawnIcon.h"

#include <algorithm>
#include <map>

namespace zelview
{
namespace
{

using enum MoraCore::TreeItemStyles;

struct StyleRow {
    MoraCore::TreeItemStyles style;
    char const* name;
    Ink ink;
    char const* drawing;
};

constexpr StyleRow StyleRows[] = {
    {None, "Node", Ink::Text, "C 8 8 2"},
    {Root, "Model", Ink::Text, "M 2 8 L 8 2 L 14 8 M 4 7 L 4 14 L 12 14 L 12 7"},
    {Assembly, "Assembly", Ink::Warm,
     "M 2 5 L 6 3 L 10 5 L 6 7 F M 2 5 L 2 9 L 6 11 L 6 7 M 6 11 L 10 9 L 10 5 "
     "M 8 10 L 11 8.5 L 14 10 L 11 11.5 F M 8 10 L 8 13 L 11 14.5 L 14 13 L 14 10 M 11 11.5 L 11 14.5"},
    {Part, "Part", Ink::Accent, "M 2 5 L 8 2 L 14 5 L 8 8 F M 2 5 L 2 11 L 8 14 L 14 11 L 14 5 M 8 8 L 8 14"},
    {Annotations, "Annotations", Ink::Green, "M 2 3 L 14 3 L 14 10 L 8 10 L 5 14 L 5 10 L 2 10 F"},
    {PmiGroup, "Group of annotations", Ink::Green, "M 2 3 L 11 3 L 11 8 L 2 8 F M 5 11 L 14 11 L 14 6"},
    {Views, "Views", Ink::Cool, "M 1 8 L 5 4 L 11 4 L 15 8 L 11 12 L 5 12 Z C 8 8 2 M 3 2 L 13 2"},
    {View, "View", Ink::Cool, "M 1 8 L 5 4 L 11 4 L 15 8 L 11 12 L 5 12 Z C 8 8 2"},
    {Captures, "Captures", Ink::Cool,
     "M 2 6 L 5 6 L 6 4 L 10 4 L 11 6 L 14 6 L 14 13 L 2 13 Z C 8 9.5 2 M 3 2 L 13 2"},
    {Capture, "Capture", Ink::Cool, "M 2 5 L 5 5 L 6 3 L 10 3 L 11 5 L 14 5 L 14 13 L 2 13 Z C 8 9 2.5"},
    {Geometry, "Geometry", Ink::Accent, "C 6 6 4 M 7 8 L 14 8 L 14 14 L 7 14 F"},
    {DrawingSheets, "Drawing sheets", Ink::Text, "M 4 2 L 14 2 L 14 11 M 2 5 L 11 5 L 11 14 L 2 14 F"},
    {Mesh, "Mesh", Ink::Accent, "M 8 2 L 14 13 L 2 13 Z M 5 7.5 L 11 7.5 L 8 13 Z"},
    {Wire, "Wire", Ink::Accent, "M 2 12 L 5 5 L 9 10 L 14 3"},
    {PointSet, "Point set", Ink::Accent, "C 4 4 1 C 11 3 1 C 7 8 1 C 13 10 1 C 4 13 1"},
    {AnnotationSet, "Set of annotations", Ink::Green, "M 2 2 L 12 2 L 12 8 L 2 8 F M 4 11 L 14 11 L 14 5"},
    {Note, "Note", Ink::Green, "M 3 2 L 10 2 L 13 5 L 13 14 L 3 14 Z M 5 7 L 11 7 M 5 10 L 11 10"},
    {Dimension, "Dimension", Ink::Green,
     "M 2 3 L 2 13 M 14 3 L 14 13 M 2 8 L 14 8 M 5 6 L 2 8 L 5 10 M 11 6 L 14 8 L 11 10"},
    {AngularDimension, "Angle", Ink::Green, "M 2 13 L 14 13 M 2 13 L 11 3 M 10 13 L 9.5 10 L 7.5 7.5"},
    {DiameterDimension, "Diameter", Ink::Green, "C 8 8 5 M 3 13 L 13 3"},
    {RadiusDimension, "Radius", Ink::Green, "C 8 8 5.5 M 8 8 L 12 4 M 9.5 4 L 12 4 L 12 6.5"},
    {Roughness, "Roughness", Ink::Green, "M 2 8 L 5 13 L 11 3 L 14 3 M 2.8 9.2 L 7 9.2"},
    {Datum, "Datum", Ink::Green, "M 4 2 L 12 2 L 12 8 L 4 8 Z M 8 8 L 8 11 M 5 14 L 8 11 L 11 14 F"},
    {NoTolerance, "Tolerance without data", Ink::Red,
     "M 2 5 L 14 5 L 14 11 L 2 11 Z M 5 5 L 11 11 M 11 5 L 5 11"},
    {Tolerance, "Tolerance", Ink::Green, "M 1 5 L 15 5 L 15 11 L 1 11 Z M 6 5 L 6 11 M 11 5 L 11 11"},
    {Parallelism, "Parallelism", Ink::Green, "M 4 13 L 8 3 M 8 13 L 12 3"},
    {Circularity, "Circularity", Ink::Green, "C 8 8 5"},
    {CircularRunout, "Circular runout", Ink::Green, "M 3 13 L 13 3 M 8 3 L 13 3 L 13 8"},
    {Concentricity, "Concentricity", Ink::Green, "C 8 8 5.5 C 8 8 2.5"},
    {Cylindricity, "Cylindricity", Ink::Green, "C 8 8 3.5 M 2 13 L 6 2 M 10 14 L 14 3"},
    {Flatness, "Flatness", Ink::Green, "M 2 12 L 6 4 L 14 4 L 10 12 Z"},
    {Angularity, "Angularity", Ink::Green, "M 14 13 L 2 13 L 12 4"},
    {Perpendicularity, "Perpendicularity", Ink::Green, "M 8 3 L 8 13 M 2 13 L 14 13"},
    {Position, "Position", Ink::Green, "C 8 8 4 M 8 1 L 8 15 M 1 8 L 15 8"},
    {LineProfile, "Profile of a line", Ink::Green,
     "M 2 12 L 3.2 8 L 5.5 5.5 L 8 4.8 L 10.5 5.5 L 12.8 8 L 14 12"},
    {SurfaceProfile, "Profile of a surface", Ink::Green,
     "M 2 12 L 3.2 8 L 5.5 5.5 L 8 4.8 L 10.5 5.5 L 12.8 8 L 14 12 F"},
    {Straightness, "Straightness", Ink::Green, "M 2 8 L 14 8"},
    {Symmetry, "Symmetry", Ink::Green, "M 2 8 L 14 8 M 5 5 L 11 5 M 5 11 L 11 11"},
    {TotalRunout, "Total runout", Ink::Green,
     "M 1 13 L 7 4 M 4 4 L 7 4 L 7 7 M 8 13 L 14 4 M 11 4 L 14 4 L 14 7 M 1 13 L 8 13"},
    {Body, "Body", Ink::Accent, "M 3 5 L 8 3 L 13 5 L 13 11 L 8 13 L 3 11 F"},
    {Face, "Face", Ink::Accent, "M 2 6 L 10 3 L 14 10 L 6 13 F"},
    {Edge, "Edge", Ink::Accent, "M 3 13 L 13 3 C 3 13 1 C 13 3 1"},
    {Vertex, "Vertex", Ink::Accent, "C 8 8 1.5 M 2 8 L 5 8 M 11 8 L 14 8 M 8 2 L 8 5 M 8 11 L 8 14"},
    {Feature, "Feature", Ink::Warm, "M 2 9 L 6 9 L 6 5 L 10 5 L 10 9 L 14 9 L 14 13 L 2 13 F"},
    {MissingPart, "Missing part", Ink::Red,
     "M 2 5 L 8 2 L 14 5 L 14 11 L 8 14 L 2 11 Z M 5.5 5.5 L 10.5 10.5 M 10.5 5.5 L 5.5 10.5"},
    {DrawingSheet, "Drawing sheet", Ink::Text, "M 2 3 L 14 3 L 14 13 L 2 13 F M 9 13 L 9 10 L 14 10"},
};

StyleRow const& rowOf(MoraCore::TreeItemStyles style)
{
    auto const row = std::ranges::find(StyleRows, style, &StyleRow::style);
    return row == std::end(StyleRows) ? StyleRows[0] : *row;
}

} // namespace

QIcon const& treeIcon(MoraCore::TreeItemStyles style)
{
    static std::map<MoraCore::TreeItemStyles, QIcon> made;
    auto [icon, isNew] = made.try_emplace(style);
    if (isNew) icon->second = drawnIcon(rowOf(style).drawing, rowOf(style).ink);
    return icon->second;
}

QString treeStyleName(MoraCore::TreeItemStyles style)
{
    return QString::fromUtf8(rowOf(style).name);
}

} // namespace zelview
