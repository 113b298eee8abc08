#pragma once
#include <hps/Sprocket.h>
#include <hps/Vector.h>

namespace HPS
{

class PortfolioKey;
class SegmentKey;

// A scene that views can show. Its segment holds what is drawn, its library segment what others include from,
// its portfolio the definitions that both name.
class Model : public SprocketOf<HPS::Type::Model>
{
public:
    using SprocketOf::SprocketOf;

    SegmentKey GetSegmentKey() const;
    SegmentKey GetLibraryKey() const;
    PortfolioKey GetPortfolioKey() const;

    // Which way is up, and which way the front of the model looks. They need not have length 1; two parallel
    // vectors are refused. A view that has had no camera of its own looks from the front, the right and the
    // top.
    bool SetOrientation(Vector const& up, Vector const& front);
    // False, leaving both as they are, if no orientation was set.
    bool ShowOrientation(Vector& up, Vector& front) const;
};

} // namespace HPS
