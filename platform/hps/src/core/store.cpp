#include "store.h"
#include "user_data.h"
#include <algorithm>

namespace HPS::scene
{

GeometryRecord::GeometryRecord() = default;
GeometryRecord::~GeometryRecord() = default;
SegmentRecord::SegmentRecord() = default;
SegmentRecord::~SegmentRecord() = default;

void SegmentRecord::setKit(KitKind kind, KitPointer block)
{
    auto const place = std::lower_bound(kits.begin(), kits.end(), kind,
                                        [](auto const& kit, KitKind k) { return kit->kind < k; });
    bool const found = place != kits.end() && (*place)->kind == kind;
    if (found && block)
        *place = std::move(block);
    else if (found)
        kits.erase(place);
    else if (block)
        kits.insert(place, std::move(block));
}

Store::Store()
{
    slots_.emplace_back(); // slot 0 is what empty handles name
    conditionNames_.push_back(&conditions_.emplace(std::string(), 0).first->first);
}

Store& Store::instance()
{
    static Store& store = *new Store;
    return store;
}

void Store::enter(Record& record)
{
    if (freeSlots_.empty()) {
        record.slot = static_cast<SlotIndex>(slots_.size());
        slots_.emplace_back();
    } else {
        record.slot = freeSlots_.back();
        freeSlots_.pop_back();
    }
    slots_[record.slot].record = &record;
}

void Store::release(Record& record)
{
    auto& slot = slots_[record.slot];
    changes.mark(record.slot, Change::Removed);
    filters.erase(record.slot);
    slot.record = nullptr;
    // A slot whose generations are used up stays empty for good.
    if (++slot.generation != 0) freeSlots_.push_back(record.slot);
    pools_.at(record.type)->release(&record);
}

ConditionId Store::conditionId(std::string const& name)
{
    auto const [entry, isNew] =
        conditions_.try_emplace(name, static_cast<ConditionId>(conditionNames_.size()));
    if (isNew) conditionNames_.push_back(&entry->first);
    return entry->second;
}

} // namespace HPS::scene
