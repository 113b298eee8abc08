#pragma once
#include <hps/GeometryKit.h>
#include <hps/Point.h>

namespace HPS
{

struct MarkerData {
    Point point;
    bool operator==(MarkerData const&) const = default;
};

// A point shown as a glyph.
class MarkerKit : public GeometryKit<MarkerKit>
{
public:
    MarkerKit() = default;
    explicit MarkerKit(Point const& point) : data_{point} {}
    MarkerKit& SetPoint(Point const& point)
    {
        data_.point = point;
        return *this;
    }
    bool ShowPoint(Point& point) const
    {
        point = data_.point;
        return true;
    }
    MarkerData const& data() const { return data_; }
    MarkerData& data() { return data_; }
    friend bool operator==(MarkerKit const&, MarkerKit const&) = default;

private:
    MarkerData data_;
};

} // namespace HPS
