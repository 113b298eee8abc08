#pragma once
#include <hps/DistantLightKit.h>
#include <hps/GeometryKey.h>

namespace HPS
{

// Light from infinitely far away.
class DistantLightKey : public KeyOf<Type::DistantLightKey, GeometryKey>
{
public:
    using KeyOf::KeyOf;
    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(DistantLightKit& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(DistantLightKit& kit);
};

} // namespace HPS
