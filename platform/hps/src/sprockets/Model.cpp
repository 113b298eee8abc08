#include "records.h"
#include <hps/Model.h>

namespace HPS
{

SegmentKey Model::GetSegmentKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->segment : SegmentKey();
}

SegmentKey Model::GetLibraryKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->library : SegmentKey();
}

PortfolioKey Model::GetPortfolioKey() const
{
    auto const* const record = Registry::instance().find(*this);
    return record != nullptr ? record->portfolio : PortfolioKey();
}

bool Model::SetOrientation(Vector const& up, Vector const& front)
{
    auto* const record = Registry::instance().find(*this);
    double const across = up.Cross(front).Length();
    if (record == nullptr || !(across > 1e-6 * up.Length() * front.Length())) return false;
    record->orientation = {up, front};
    return true;
}

bool Model::ShowOrientation(Vector& up, Vector& front) const
{
    auto const* const record = Registry::instance().find(*this);
    if (record == nullptr || !record->orientation) return false;
    std::tie(up, front) = *record->orientation;
    return true;
}

} // namespace HPS
