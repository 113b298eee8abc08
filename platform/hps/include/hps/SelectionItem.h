#pragma once
#include <array>
#include <hps/KeyPath.h>
#include <hps/Point.h>

namespace HPS
{

using SizeTArray = std::vector<std::size_t>;

// Parts of one geometry, by the numbers they have in it. Facets of what is curved have no numbers.
struct SelectionParts {
    SizeTArray faces;                              // of a shell, or cells of a mesh, row by row
    std::vector<std::array<std::size_t, 2>> edges; // each by the points at its ends; of a line its pieces
    SizeTArray vertices;

    bool Empty() const { return faces.empty() && edges.empty() && vertices.empty(); }
    bool operator==(SelectionParts const&) const = default;
};

// One thing that was selected, at one place where it is shown.
class SelectionItem
{
public:
    SelectionItem() = default;
    // The path's front is what was selected. The position stands in the world.
    SelectionItem(KeyPath path, Point const& position, SelectionParts parts = {})
        : path_(std::move(path)), position_(position), parts_(std::move(parts))
    {
    }

    bool Empty() const { return path_.Empty(); }
    // A segment or a geometry, as the level of the selection says. All are false for an empty item.
    bool ShowSelectedItem(Key& key) const;
    // From what was selected up to the window, includes among the segments.
    bool ShowPath(KeyPath& path) const;
    // Where it was met, in the world.
    bool ShowSelectionPosition(Point& position) const;

    // What of the geometry was met, if the level was Subentity. False if there is nothing of the kind.
    bool ShowFaces(SizeTArray& faces) const;
    bool ShowEdges(SizeTArray& from, SizeTArray& to) const;
    bool ShowVertices(SizeTArray& vertices) const;
    SelectionParts const& Parts() const { return parts_; }

    // The same thing at the same place in the scene, wherever it was met.
    friend bool operator==(SelectionItem const& a, SelectionItem const& b) { return a.path_ == b.path_; }

private:
    friend class SelectionResults;
    KeyPath path_;
    Point position_;
    SelectionParts parts_;
};

} // namespace HPS
