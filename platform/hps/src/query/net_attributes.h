#pragma once
#include "lock_set.h"
#include "portfolio_record.h"
#include "stored_kit.h"
#include <array>
#include <span>
#include <unordered_map>
#include <unordered_set>

namespace HPS::scene
{

// What holds at one place of a path, matrix aside. Never changed once it is made. Two states from one fold
// are equal if and only if their pointers are; so are the kits in them, kind by kind.
struct NetState {
    std::array<KitPointer, inheritedKitCount> kits; // null where nothing is set
    LockSet locks;                                  // what nothing below may change
    std::vector<ConditionId> conditions;            // in force, sorted
    std::vector<KeyIndex> portfolios;               // in reach, the last one first in line
    std::string materialPalette;
    std::optional<MatrixKit> textureMatrix;
    std::optional<int> priority;

    bool operator==(NetState const&) const = default;

    KitBlock const* block(KitKind kind) const { return kits[static_cast<std::size_t>(kind)].get(); }
    // The values that hold; what no segment on the path sets is not set here either.
    template <class Data> Data const& get() const
    {
        static_assert(kitKind<Data> < KitKind::InheritedCount, "the kit is not inherited");
        return valuesOf<Data>(block(kitKind<Data>));
    }
    // The palette that indices count in; null if there is none.
    Palette palette() const
    {
        return materialPalette.empty() ? nullptr : findPalette(portfolios, materialPalette);
    }
    LinePatternKit const* linePattern(std::string_view name) const
    {
        return findLinePattern(portfolios, name);
    }
};
using NetStatePointer = std::shared_ptr<NetState const>;

// What holds at one place of a path.
struct NetAttributes {
    NetStatePointer state;
    MatrixKit matrix; // from the segment's own coordinates to those above the path's root
};

// The one fold that all who ask what holds somewhere go through: a segment at a time, from the root of a path
// down. For each segment its styles come first, in the order they were pushed, then its own kits. A lock on a
// segment keeps what is below it; a lock from a style also keeps the segment's own kits and the styles after
// it; an override frees what is below from the locks so far. It remembers its results and notices by itself
// when they are out of date. For one thread at a time.
class NetFold
{
public:
    NetFold();

    // Above every root: nothing set.
    NetAttributes root() const { return {root_, MatrixKit()}; }

    NetAttributes step(NetAttributes const& parent, SegmentRecord const& segment)
    {
        NetAttributes net{state(parent.state, segment), parent.matrix};
        if (segment.matrix) net.matrix = *segment.matrix * parent.matrix;
        return net;
    }
    // The state alone; `parent` itself for a segment that sets nothing.
    NetStatePointer state(NetStatePointer const& parent, SegmentRecord const& segment);

    // What what is included starts from: what holds at the owner of the include, less what its filter holds
    // back.
    NetAttributes through(NetAttributes const& owner, IncludeRecord const& include);

    // Lays the attributes of a style's source over a state, as a style pushed last on it would: highlighting.
    NetStatePointer overlay(NetStatePointer const& state, SegmentRecord const& source);
    // The same with kits of no segment.
    NetStatePointer overlay(NetStatePointer const& state, std::span<KitPointer const> kits);

    // A state with nothing set by kits of one kind.
    NetStatePointer without(NetStatePointer const& state, KitKind kind);

    // Forgets the results that nobody holds.
    void trim();

    std::size_t stateCount() const { return states_.size(); }

private:
    // From a state to the next: by a segment's slot, or by the address of a kit that is set.
    template <class By> struct Step {
        NetState const* parent;
        By by;
        bool operator==(Step const&) const = default;
    };
    struct StepHash {
        template <class By> std::size_t operator()(Step<By> const& step) const
        {
            return (reinterpret_cast<std::size_t>(step.parent) >> 4) * 0x9E3779B97F4A7C15u ^
                   std::hash<By>()(step.by) * 0xC2B2AE3D27D4EB4Fu;
        }
    };
    // Results keep the addresses in their keys from being used again.
    struct SegmentResult {
        std::uint32_t stamp;
        NetStatePointer parent;
        NetStatePointer state;
    };
    struct KitResult {
        KitPointer kit;
        NetStatePointer parent;
        NetStatePointer state;
    };
    struct StateHash {
        std::size_t operator()(NetStatePointer const& state) const;
    };
    struct StateEqual {
        bool operator()(NetStatePointer const& a, NetStatePointer const& b) const { return *a == *b; }
    };

    void forgetWhatIsOld();
    // The state with one more kit.
    NetStatePointer with(NetStatePointer const& state, KitPointer const& kit);
    NetState compute(NetState const& parent, SegmentRecord const& segment);
    // Lays all that a segment or the source of a style gives over a state, its locks last.
    void apply(NetState& net, SegmentRecord const& source, LockSet const& locked);
    void applyKits(NetState& state, std::span<KitPointer const> kits, LockSet const& locked);
    template <class Data>
    KitPointer merged(KitPointer const& base, KitPointer const& over, LockSet const& locked);
    NetStatePointer intern(NetState&& state);

    NetStatePointer root_;
    std::unordered_map<Step<SlotIndex>, SegmentResult, StepHash> segmentSteps_;
    std::unordered_map<Step<KitBlock const*>, KitResult, StepHash> kitSteps_;
    std::unordered_set<NetStatePointer, StateHash, StateEqual> states_;
    std::uint32_t definitionStamp_ = 0;
};

} // namespace HPS::scene
