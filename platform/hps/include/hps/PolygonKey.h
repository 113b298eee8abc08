#pragma once
#include <hps/GeometryKey.h>
#include <hps/PolygonKit.h>

namespace HPS
{

// A flat face with its outline.
class PolygonKey : public KeyOf<Type::PolygonKey, GeometryKey>
{
public:
    using KeyOf::KeyOf;
    std::size_t GetPointCount() const;
    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(PolygonKit& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(PolygonKit& kit);
};

} // namespace HPS
