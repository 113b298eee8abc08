#pragma once
#include "kit_set.h"
#include "name_index.h"
#include "pool.h"
#include "short_text.h"
#include <hps/Cuboid.h>
#include <hps/EventDispatcher.h>
#include <hps/MatrixKit.h>
#include <optional>
#include <span>
#include <vector>

namespace HPS::scene
{

// What few segments have.
struct SegmentExtras {
    std::vector<ConditionId> conditions; // set on the segment, sorted
    std::vector<SlotIndex> styles;       // StyleRecords, in the order they were pushed
    std::vector<KeyIndex> portfolios;    // pushed, the last one on top; some may be gone
    std::string materialPalette;
    Pooled<MatrixKit> textureMatrix;
    std::optional<int> priority;
    NameIndex childrenByName; // empty until there are more than a few
};

struct SegmentRecord : OwnedRecord {
    static constexpr HPS::Type family = HPS::Type::SegmentKey;
    // With more named children than this a segment keeps them by name.
    static constexpr std::size_t indexedFrom = 8;

    std::uint32_t attributeStamp : 30 = 0; // new at every write of what the fold reads
    std::uint32_t boundsKnown : 1 = false;
    std::uint32_t isStyleSource : 1 = false; // its attributes are used by styles somewhere
    Pooled<MatrixKit> matrix;                // none: identity
    ShortText name;
    SlotList children;  // SegmentRecords
    SlotList includes;  // IncludeRecords owned here
    SlotList includers; // IncludeRecords elsewhere whose target this is
    SlotList geometry;  // GeometryRecords
    KitSet kits;
    std::unique_ptr<SegmentExtras> extras;
    std::unique_ptr<UserData> userData;

    // The extent of the contents, in this segment's coordinates, if boundsKnown. Filled by the bounding
    // query.
    SimpleCuboid bounds;

    SegmentRecord();
    ~SegmentRecord();

    KitBlock const* kit(KitKind kind) const { return kits.find(kind); }
    void setKit(KitKind kind, KitPointer block) { kits.set(kind, std::move(block)); }
    SegmentExtras& rare()
    {
        if (!extras) extras = std::make_unique<SegmentExtras>();
        return *extras;
    }
};

// A window is the segment at the head of what it shows.
struct WindowRecord : SegmentRecord {
    static constexpr HPS::Type family = HPS::Type::WindowKey;
    int width = 1280, height = 720; // pixels
    EventDispatcher dispatcher;
};

} // namespace HPS::scene
