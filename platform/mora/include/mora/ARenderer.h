#pragma once

namespace ZELVizCore
{

class ARenderer
{
public:
    /// Id of a model from a number that is unique in the process, as an object's address. The result fits a
    /// signed 64-bit field: its top bit is 0.
    static constexpr unsigned long long getSignedId(unsigned long long id)
    {
        return id & 0x7fffffffffffffffull;
    }
};

} // namespace ZELVizCore
