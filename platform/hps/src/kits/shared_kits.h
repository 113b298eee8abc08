// One block for all equal kits: a million segments of one colour hold it once, and whoever compares blocks by
// their addresses compares their values.
#pragma once
#include "stored_kit.h"

namespace HPS::scene
{

// The block of these values: one that is in use already, or else a new one. Null for no values at all.
template <class Data> KitPointer sharedKit(Data&& values);

#define HPS_DECLARE_SHARED(Name) extern template KitPointer sharedKit<Name##Data>(Name##Data &&);
HPS_ALL_KITS(HPS_DECLARE_SHARED)
#undef HPS_DECLARE_SHARED

} // namespace HPS::scene
