#include "slot_list.h"
#include <algorithm>

namespace HPS::scene
{

void SlotList::push_back(SlotIndex slot)
{
    if (size_ == capacity_) {
        auto const grown = capacity_ * 2;
        auto* const heap = new SlotIndex[grown];
        std::copy(begin(), end(), heap);
        if (capacity_ > inlineCapacity) delete[] heap_;
        heap_ = heap;
        capacity_ = grown;
    }
    data()[size_++] = slot;
}

bool SlotList::remove(SlotIndex slot)
{
    auto* const first = data();
    for (auto i = size_; i-- > 0;) {
        if (first[i] != slot) continue;
        std::copy(first + i + 1, first + size_, first + i);
        --size_;
        return true;
    }
    return false;
}

} // namespace HPS::scene
