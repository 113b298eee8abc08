#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>
#include <hps/enumerations.h>

namespace HPS
{

struct InfiniteLineData {
    Point first;
    Point second{1, 0, 0};
    HPS::InfiniteLine::Type type = HPS::InfiniteLine::Type::Line;

    bool operator==(InfiniteLineData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&InfiniteLineData::first, &InfiniteLineData::second, &InfiniteLineData::type};
    }
};

template <class Self> class InfiniteLineOperations : public GeometryOperations<Self>
{
public:
    using Data = InfiniteLineData;

    HPS_FIELD(First, Point, first)
    HPS_FIELD(Second, Point, second)
    HPS_FIELD(Type, HPS::InfiniteLine::Type, type)
};

// A straight line without ends, or a ray from its first point.
class InfiniteLineKit : public GeometryKitOf<InfiniteLineKit, InfiniteLineData>,
                        public InfiniteLineOperations<InfiniteLineKit>
{
public:
};

} // namespace HPS
