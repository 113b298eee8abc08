#pragma once
#include "kit_block.h"
#include <vector>

namespace HPS::scene
{

// The kits that are set on a segment, at most one of a kind, sorted by kind. Most segments have none.
class KitSet
{
public:
    std::vector<KitPointer> const& list() const
    {
        static std::vector<KitPointer> const none;
        return kits_ ? *kits_ : none;
    }
    KitPointer const* begin() const { return kits_ ? kits_->data() : nullptr; }
    KitPointer const* end() const { return begin() + size(); }
    std::size_t size() const { return kits_ ? kits_->size() : 0; }
    bool empty() const { return !kits_; }
    void clear() { kits_.reset(); }

    KitBlock const* find(KitKind kind) const
    {
        for (auto const& block : *this)
            if (block->kind == kind) return block.get();
        return nullptr;
    }
    void set(KitKind kind, KitPointer block); // null takes it away

private:
    std::unique_ptr<std::vector<KitPointer>> kits_; // null for none
};

} // namespace HPS::scene
