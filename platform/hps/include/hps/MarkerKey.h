#pragma once
#include <hps/GeometryKey.h>
#include <hps/MarkerKit.h>

namespace HPS
{

// A point shown as a glyph.
class MarkerKey : public KeyOf<Type::MarkerKey, GeometryKey>
{
public:
    using KeyOf::KeyOf;
    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(MarkerKit& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(MarkerKit& kit);
};

} // namespace HPS
