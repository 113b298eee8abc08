#pragma once
#include "change_log.h"
#include "pool.h"
#include "segment_record.h"
#include <hps/AttributeLock.h>
#include <hps/SegmentKey.h>
#include <map>
#include <unordered_map>

namespace HPS::scene
{

// The database: all records, by slot. A handle is turned into a record here and nowhere else.
class Store
{
public:
    // Never destroyed: handles may be used by objects that die after main().
    static Store& instance();

    // The record of a handle, or null if it is stale, empty or of another type.
    template <class R> R* resolve(KeyIndex index) const { return holds(index) ? at<R>(index.slot) : nullptr; }
    template <class R> R* resolve(Key const& key) const { return resolve<R>(key.Index()); }
    Record* resolve(KeyIndex index) const { return holds(index) ? records_[index.slot] : nullptr; }

    // The record in a slot, or null if the slot is free or holds another type.
    template <class R> R* at(SlotIndex slot) const
    {
        Record* const record = slot < records_.size() ? records_[slot] : nullptr;
        return record && isOfType(record->type, R::family) ? static_cast<R*>(record) : nullptr;
    }
    KeyIndex indexOf(Record const& record) const { return indexOf(record.slot); }
    KeyIndex indexOf(SlotIndex slot) const { return {slot, generations_[slot]}; }
    std::size_t slotCount() const { return records_.size(); }

    template <class R> R& create(HPS::Type type)
    {
        auto& pool = pools_[type];
        if (!pool) pool = std::make_unique<RecordPool<R>>();
        R& record = static_cast<RecordPool<R>&>(*pool).acquire();
        record.type = type;
        enter(record);
        return record;
    }
    // Frees the slot and the record and nothing else: what points at it must be gone.
    void release(Record& record);

    ConditionId conditionId(std::string const& name); // 0 for the empty name
    std::string const& conditionName(ConditionId id) const { return *conditionNames_[id]; }

    // Counters that a cached fold result is compared with.
    std::uint32_t nextStamp() { return ++stamp_ & 0x3FFFFFFF; }
    std::uint32_t definitionStamp = 0; // new when a style source, a style's name or a palette changes

    // The filters of styles and includes, by slot, sorted. Few have one.
    using Filter = std::vector<AttributeLock::Type>;
    std::unordered_map<SlotIndex, Filter> filters;
    Filter const* filterOf(SlotIndex link) const
    {
        auto const found = filters.find(link);
        return found == filters.end() ? nullptr : &found->second;
    }

    ChangeLog changes;
    SlotList roots; // segments without an owner

private:
    Store();
    void enter(Record& record);

    bool holds(KeyIndex index) const
    {
        return index.slot < generations_.size() && generations_[index.slot] == index.generation;
    }

    // By slot. Apart from each other, which saves the padding.
    std::vector<Record*> records_; // null for a free slot
    std::vector<std::uint32_t> generations_;
    std::vector<SlotIndex> freeSlots_;
    std::map<HPS::Type, std::unique_ptr<RecordPoolBase>> pools_;
    std::map<std::string, ConditionId> conditions_;
    std::vector<std::string const*> conditionNames_;
    std::uint32_t stamp_ = 0;
};

inline Store& store()
{
    return Store::instance();
}

} // namespace HPS::scene
