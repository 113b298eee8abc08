#pragma once
#include "Device.h"
#include <utility>

namespace HPS::render
{

/// The one T that lives as long as the device's context does: made when first asked for, gone before the
/// context is given up. What T's constructor asks for goes later than T. At the end of the process it stays,
/// as the context does. Has to be a friend of a T whose constructor is private.
template <class T> T& ofContext()
{
    static T* one = nullptr;
    if (one == nullptr) {
        one = new T;
        Device::instance().whenContextGoes([] { delete std::exchange(one, nullptr); });
    }
    return *one;
}

} // namespace HPS::render
