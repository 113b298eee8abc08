#pragma once
#include "slot_list.h"
#include <hps/Key.h>
#include <memory>

namespace HPS::scene
{

class UserData;

// Base of everything in the database. Records stay where they are for life.
struct Record {
    SlotIndex slot = 0;
    HPS::Type type = HPS::Type::None;
};

// A record that a segment may own.
struct OwnedRecord : Record {
    SlotIndex owner = 0;       // a segment; 0 for a root
    SlotList::Place place = 0; // in the owner's list of its kind, or among the roots; styles have none
};

struct GeometryRecord : OwnedRecord {
    static constexpr HPS::Type family = HPS::Type::GeometryKey;
    int priority = 0;
    bool hasPriority = false;
    std::unique_ptr<UserData> userData;

    GeometryRecord();
    ~GeometryRecord();
};

struct IncludeRecord : OwnedRecord {
    static constexpr HPS::Type family = HPS::Type::IncludeKey;
    SlotIndex target = 0;
    SlotList::Place placeInTarget = 0; // among its includers
};

using ConditionId = std::uint32_t; // names are interned by the store; 0 is no condition

struct StyleRecord : OwnedRecord {
    static constexpr HPS::Type family = HPS::Type::StyleKey;
    ConditionId condition = 0;
    KeyIndex source;  // a segment that may be gone; empty for a named style
    std::string name; // empty for a style with a source of its own
};

} // namespace HPS::scene
