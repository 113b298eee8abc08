#pragma once
#include <hps/GeometryKey.h>
#include <hps/InfiniteLineKit.h>

namespace HPS
{

// A line without ends, or a ray.
class InfiniteLineKey : public GeometryKeyOf<HPS::Type::InfiniteLineKey, InfiniteLineKit>,
                        public InfiniteLineOperations<InfiniteLineKey>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
};

} // namespace HPS
