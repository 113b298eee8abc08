#pragma once

#include "StepGeometry.h"
#include "StepStyles.h"

namespace NarMetaInfra
{
/// What an annotation looks like: lines and fillings in the coordinates of its part, millimetres.
struct StepPicture {
    struct Line {
        StepPolyline points;
        StepLook look;
        bool operator==(Line const&) const = default;
    };
    /// Triangles that look alike; normals are those of the plane that they lie in.
    struct Fill {
        std::vector<StepPoint> points, normals;
        std::vector<std::array<int, 3>> triangles;
        StepLook look;
    };
    /// Area within closed outlines, holes among them.
    struct Area {
        std::vector<StepPolyline> outlines;
        StepLook look;
    };
    /// A string that the viewer has to set.
    struct Text {
        std::wstring words;
        StepFrame place;
        double size = 0.0; ///< 0 if the file does not say
        StepLook look;
    };

    std::vector<Line> lines;
    std::vector<Fill> fills;
    std::vector<Area> areas;
    std::vector<Text> texts;

    bool isEmpty() const { return lines.empty() && fills.empty() && areas.empty() && texts.empty(); }
};

/// Collects the pictures of annotation occurrences, callouts of them, and symbols placed in them.
class StepPictures
{
public:
    StepPictures(StepEntities const& entities, StepStyles const& styles) : Entities(entities), Styles(styles)
    {
    }

    /// @p geometry must be that of the context in which the annotation stands; @p place is where its drawing
    /// is put.
    StepPicture of(int annotation, StepGeometry const& geometry, StepFrame const& place = {}) const;

private:
    struct Pen;
    void draw(int item, Pen const& pen, StepPicture& picture) const;
    void drawCurve(int item, Pen const& pen, StepPicture& picture) const;
    void drawLines(int set, Pen const& pen, StepPicture& picture) const;
    void drawTriangles(int set, Pen const& pen, StepPicture& picture) const;
    void drawArea(int area, Pen const& pen, StepPicture& picture) const;
    void drawText(int text, Pen const& pen, StepPicture& picture) const;
    void drawMapped(int item, Pen const& pen, StepPicture& picture) const;

    StepEntities const& Entities;
    StepStyles const& Styles;
};

/// Triangles of a triangulated set or face of the file: numbers into its coordinates, counted from 0.
std::vector<std::array<int, 3>> stepTriangles(StepEntities const& entities, int item, std::size_t pointCount);
} // namespace NarMetaInfra
