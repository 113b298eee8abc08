#include "caller_fault.h"
#include <mora/RenderId.h>

namespace ZELVizCore
{

namespace
{

std::size_t checked(int index, std::size_t length)
{
    if (index < 0 || static_cast<std::size_t>(index) >= length)
        MoraCore::callerFault("RenderId::operator[]",
                              "index " + std::to_string(index) + " of " + std::to_string(length) + " values");
    return static_cast<std::size_t>(index);
}

} // namespace

RenderId::RenderId(std::vector<unsigned long long> const& values, OriginEnum const& origin)
    : Origin(origin), values_(values)
{
}

unsigned long long RenderId::operator[](int index) const
{
    return values_[checked(index, values_.size())];
}

unsigned long long& RenderId::operator[](int index)
{
    return values_[checked(index, values_.size())];
}

void RenderId::SetLength(int length)
{
    values_.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
}

} // namespace ZELVizCore
