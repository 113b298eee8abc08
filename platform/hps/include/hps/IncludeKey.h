#pragma once
#include <hps/AttributeLock.h>
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

    // The attributes that what is included cannot change where it is shown through this include. SetFilter
    // adds to those named before; UnsetFilter without types takes all away. ShowFilter gives them in the
    // order of their numbers; false if there are none.
    IncludeKey& SetFilter(std::vector<AttributeLock::Type> const& types);
    IncludeKey& SetFilter(AttributeLock::Type type) { return SetFilter(std::vector{type}); }
    IncludeKey& UnsetFilter(std::vector<AttributeLock::Type> const& types);
    IncludeKey& UnsetFilter();
    bool ShowFilter(std::vector<AttributeLock::Type>& types) const;
};

} // namespace HPS
