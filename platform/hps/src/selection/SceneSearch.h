#pragma once
#include "PathSteps.h"
#include "PickOptions.h"
#include "PickScene.h"
#include "ShapeSearch.h"
#include <functional>
#include <hps/SelectionItem.h>

namespace HPS::selection
{

/// Where a search starts.
struct SearchTop {
    scene::SegmentRecord const* segment;
    scene::NetAttributes above;
    std::uint32_t step;               ///< of what stands above
    std::vector<CutSection> sections; ///< in force there, in the world
};

/// A geometry on one path that a probe has met. What comes before others has less of `first`, or as much of
/// it and less of `second`.
struct Found {
    std::uint32_t segment; ///< step of the path that the geometry stands in
    scene::SlotIndex geometry;
    bool overlay = false; ///< drawn over the rest whatever the depths
    bool hasArea = false; ///< met on a face or a text
    double first = 0, second = 0;
    double depth = 0;
    Vec3 place; ///< in the world
    SelectionParts parts;
};

/// Searches what stands below a segment. Goes down where boxes let it, and works out what holds there on the
/// way, so that it costs what lies near the place asked about.
class SceneSearch
{
public:
    /// All that is handed over must stay while the search is used.
    SceneSearch(PickScene& scene, PickOptions const& options, Probe const& probe, PathSteps& steps);

    using Take = std::function<void(Found&&)>;
    /// Parts of the window of their own are not entered but added to `windows`.
    void run(SearchTop const& top, std::vector<SearchTop>& windows, Take const& take);

    struct NearestFace {
        double depth;
        std::uint32_t segment; ///< step
        scene::SlotIndex geometry;
    };
    /// The first face on the probe's ray that hides what is behind it.
    std::optional<NearestFace> nearestFace(SearchTop const& top);

private:
    /// Kinds of what is met, those first that give way to others on them.
    enum class Kind { Face, Text, Line, Mark };
    struct Place {
        scene::SegmentRecord const& segment;
        scene::NetAttributes net;
        SegmentIndex::Entry const& entry;
        std::uint32_t step;
        std::span<CutSection const> sections; ///< that cut what stands here, in the world
        /// Pixels that lines, and marks, may lie beside the place asked about; nothing below that sets sizes
        /// counts here.
        double lineReach, markReach;
        bool overlay = false; ///< what stands here is drawn over the rest
    };
    /// enter(box, content, place) tells whether a box matters; use(geometry, place) is called for what stands
    /// in one.
    template <class Enter, class Use>
    void descend(SearchTop const& top, std::vector<SearchTop>* windows, Enter const& enter, Use const& use);

    std::optional<Found> meet(scene::SlotIndex slot, Place const& place, PickLook const& look);
    void note(std::optional<Found>& found, Kind kind, Meeting const& meeting) const;
    void addParts(SelectionParts& parts, Kind kind, PickShape const& shape, Meeting& meeting) const;
    double reachOf(render::Look::Stroke const& stroke, double most) const;
    double reachOf(std::uint8_t content, Place const& place) const;
    void findReach(Place& place);
    /// The least that the rank of anything in a box can be; the lowest number where nobody knows.
    double leastRank(Box const& box, std::uint8_t content, Place const& place) const;
    double rankOf(Kind kind, double depth) const;
    bool isTooSmall(Place const& place, PickLook const& look) const;

    PickScene& scene_;
    PickOptions const& options_;
    PathSteps& steps_;
    LocalProbe local_, inReference_, inWorld_;
    MeetingWishes wishes_;
    bool single_;                                           ///< one result will do, the first by its rank
    double best_ = std::numeric_limits<double>::infinity(); ///< its rank so far, if so
    double lineReach_,
        markReach_; ///< pixels that lines and marks may lie beside the place asked about, at most
};

} // namespace HPS::selection
