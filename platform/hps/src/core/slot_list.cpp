#include "slot_list.h"
#include <bit>
#include <cstdlib>
#include <new>

namespace HPS::scene
{

static_assert(std::endian::native == std::endian::little,
              "the lowest bit of an address is in its first word");

SlotList::~SlotList()
{
    std::free(block());
}

SlotList::Place SlotList::push_back(SlotIndex slot)
{
    if (empty() && !block()) {
        words_[0] = 1;
        words_[1] = slot;
        return 0;
    }
    auto* b = block();
    if (!b || b->end == b->capacity) {
        auto const capacity = b ? b->capacity * 2 + 1 : 3;
        auto const* const one = b ? nullptr : &words_[1];
        auto* const grown =
            static_cast<Block*>(std::realloc(b, offsetof(Block, slots) + capacity * sizeof(SlotIndex)));
        if (!grown) throw std::bad_alloc();
        if (one) {
            grown->end = 1;
            grown->gaps = 0;
            grown->slots[0] = *one;
        }
        grown->capacity = capacity;
        std::memcpy(words_, &grown, sizeof grown);
        b = grown;
    }
    b->slots[b->end] = slot;
    return b->end++;
}

bool SlotList::leaveGap(SlotIndex slot, Place place)
{
    if (first() + place >= last() || first()[place] != slot) return false;
    auto* const b = block();
    if (!b) {
        words_[0] = words_[1] = 0;
        return false;
    }
    b->slots[place] = 0;
    ++b->gaps;
    for (; b->end > 0 && b->slots[b->end - 1] == 0; --b->end) --b->gaps;
    return b->gaps * 2 >= b->end;
}

} // namespace HPS::scene
