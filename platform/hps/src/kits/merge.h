#pragma once
#include "lock_set.h"
#include <hps/CameraKit.h>
#include <hps/MaterialMappingKit.h>
#include <hps/VisibilityKit.h>

namespace HPS::scene
{

// Values set in `over` win; the rest of `base` shows through. Inheritance is a fold of this.
template <class Data> void merge(Data& base, Data const& over)
{
    forEachAspect<Data>([&](auto const& aspect) {
        if (auto const& value = aspect.get(over)) aspect.put(base, value);
    });
}
void merge(VisibilityData& base, VisibilityData const& over);
// Colour, alpha and channels one by one.
void merge(MaterialMappingData& base, MaterialMappingData const& over);

// The same, but for what is locked. Kits without locks of their own are held by Everything.
template <class Data> void merge(Data& base, Data const& over, LockSet const& locked)
{
    if (!locked.test(LockBit::others)) merge(base, over);
}
void merge(VisibilityData& base, VisibilityData const& over, LockSet const& locked);
void merge(MaterialMappingData& base, MaterialMappingData const& over, LockSet const& locked);
void merge(CameraData& base, CameraData const& over, LockSet const& locked);

} // namespace HPS::scene
