// Which geometry refers to which: what is shown by reference changes with its target.
#pragma once
#include "slot_list.h"

namespace HPS::scene
{

// `target` 0 takes the reference away.
void setTarget(SlotIndex reference, SlotIndex target);

// The target changed or is gone: all that refer to it get a mark, and the extents around them are not known
// any more.
void noteTarget(SlotIndex target);

} // namespace HPS::scene
