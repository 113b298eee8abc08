#pragma once
#include <hps/Point.h>
#include <tuple>
#include <vector>

namespace HPS
{

namespace Trim
{
enum class Operation : std::uint32_t { Keep, Remove };
}

// A closed outline in the parameters of a surface: z counts for nothing. What lies within is kept, and all
// else removed; or the other way round.
struct TrimData {
    Trim::Operation operation = Trim::Operation::Keep;
    std::vector<Point> points;

    bool operator==(TrimData const&) const = default;
    static constexpr auto fields() { return std::tuple{&TrimData::operation, &TrimData::points}; }
};

class TrimKit
{
public:
    TrimKit& SetOperation(Trim::Operation operation)
    {
        data_.operation = operation;
        return *this;
    }
    bool ShowOperation(Trim::Operation& operation) const
    {
        operation = data_.operation;
        return true;
    }
    TrimKit& SetPoints(std::vector<Point> points)
    {
        data_.points = std::move(points);
        return *this;
    }
    bool ShowPoints(std::vector<Point>& points) const
    {
        if (data_.points.empty()) return false;
        points = data_.points;
        return true;
    }
    TrimData const& data() const { return data_; }
    friend bool operator==(TrimKit const&, TrimKit const&) = default;

private:
    TrimData data_;
};
using TrimKitArray = std::vector<TrimKit>;

} // namespace HPS
