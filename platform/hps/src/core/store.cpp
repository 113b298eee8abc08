#include "store.h"
#include "SceneGate.h"
#include "user_data.h"
#include <algorithm>

namespace HPS::scene
{

GeometryRecord::GeometryRecord() = default;
GeometryRecord::~GeometryRecord() = default;
SegmentRecord::SegmentRecord() = default;
SegmentRecord::~SegmentRecord() = default;

void KitSet::set(KitKind kind, KitPointer block)
{
    if (!kits_) {
        if (block) kits_ = std::make_unique<std::vector<KitPointer>>(1, std::move(block));
        return;
    }
    auto const place = std::lower_bound(kits_->begin(), kits_->end(), kind,
                                        [](auto const& kit, KitKind k) { return kit->kind < k; });
    bool const found = place != kits_->end() && (*place)->kind == kind;
    if (found && block)
        *place = std::move(block);
    else if (found)
        kits_->erase(place);
    else if (block)
        kits_->insert(place, std::move(block));
    if (kits_->empty()) kits_.reset();
}

Store::Store()
{
    // Slot 0 is what empty handles name.
    records_.push_back(nullptr);
    generations_.push_back(1);
    conditionNames_.push_back(&conditions_.emplace(std::string(), 0).first->first);
}

Store& Store::instance()
{
    static Store& store = *new Store;
    SceneGate::pass();
    return store;
}

void Store::enter(Record& record)
{
    if (freeSlots_.empty()) {
        record.slot = static_cast<SlotIndex>(records_.size());
        records_.push_back(nullptr);
        generations_.push_back(1);
    } else {
        record.slot = freeSlots_.back();
        freeSlots_.pop_back();
    }
    records_[record.slot] = &record;
}

void Store::release(Record& record)
{
    changes.mark(record.slot, Change::Removed);
    filters.erase(record.slot);
    records_[record.slot] = nullptr;
    // A slot whose generations are used up stays empty for good.
    if (++generations_[record.slot] != 0) freeSlots_.push_back(record.slot);
    pools_.at(record.type)->release(record);
}

ConditionId Store::conditionId(std::string const& name)
{
    auto const [entry, isNew] =
        conditions_.try_emplace(name, static_cast<ConditionId>(conditionNames_.size()));
    if (isNew) conditionNames_.push_back(&entry->first);
    return entry->second;
}

} // namespace HPS::scene
