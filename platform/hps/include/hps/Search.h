#pragma once
#include <hps/Key.h>
#include <memory>

namespace HPS
{

namespace Search
{
// What to look for.
enum class Type : std::uint32_t {
    Includes = 68,
    Subsegments = 69,
    Segment = Subsegments,
    Everything = 0xFFFFFF, // all objects; in Flush also everything set on the segment
    Geometry = 0x10000000, // every kind of it
    CuttingSection = 0x10000027,
    Shell = 0x10000029,
    Mesh = 0x1000002A,
    Grid = 0x1000002C,
    NURBSSurface = 0x1000002D,
    Cylinder = 0x1000002F,
    Sphere = 0x10000030,
    Polygon = 0x10000031,
    Circle = 0x10000032,
    CircularWedge = 0x10000034,
    Ellipse = 0x10000035,
    Line = 0x10000036,
    NURBSCurve = 0x10000039,
    CircularArc = 0x1000003A,
    EllipticalArc = 0x1000003B,
    InfiniteLine = 0x1000003C,
    Marker = 0x1000003E,
    Text = 0x10000040,
    Reference = 0x10000043,
    DistantLight = 0x10000100,
    Spotlight = 0x10000101,
    InfiniteRay = 0x10000102,
};

// Where to look: in the segment alone, or in it and all below it. Includes are not followed.
enum class Space : std::uint32_t { SegmentOnly = 0, Subsegments = 1 };
} // namespace Search

using SearchTypeArray = std::vector<Search::Type>;

struct SearchResult {
    Key key;
    SearchTypeArray types; // those of the search that the object answers to
};

// Runs over what a search found. Works on a copy: objects may be deleted on the way.
class SearchResultsIterator
{
public:
    SearchResultsIterator() = default;
    explicit SearchResultsIterator(std::shared_ptr<std::vector<SearchResult> const> items)
        : items_(std::move(items))
    {
    }

    bool IsValid() const { return items_ && position_ < items_->size(); }
    void Next() { position_ += IsValid(); }
    void Reset() { position_ = 0; }
    Key GetItem() const { return IsValid() ? (*items_)[position_].key : Key(); }
    SearchTypeArray GetResultTypes() const
    {
        return IsValid() ? (*items_)[position_].types : SearchTypeArray();
    }

private:
    std::shared_ptr<std::vector<SearchResult> const> items_;
    std::size_t position_ = 0;
};

class SearchResults
{
public:
    SearchResults() : items_(std::make_shared<std::vector<SearchResult>>()) {}
    explicit SearchResults(std::vector<SearchResult> items)
        : items_(std::make_shared<std::vector<SearchResult>>(std::move(items)))
    {
    }
    std::size_t GetCount() const { return items_->size(); }
    SearchResultsIterator GetIterator() const { return SearchResultsIterator(items_); }

private:
    std::shared_ptr<std::vector<SearchResult> const> items_;
};

} // namespace HPS
