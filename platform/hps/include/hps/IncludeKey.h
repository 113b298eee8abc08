#pragma once
#include <hps/Key.h>

namespace HPS
{

// Shows one segment as if it stood below another as well.
class IncludeKey : public KeyOf<Type::IncludeKey>
{
public:
    using KeyOf::KeyOf;
    // The included segment.
    SegmentKey GetTarget() const;
};

} // namespace HPS
