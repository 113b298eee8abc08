#pragma once
#include <hps/GeometryKey.h>
#include <hps/TextKit.h>

namespace HPS
{

// A text in space.
class TextKey : public KeyOf<Type::TextKey, GeometryKey>
{
public:
    using KeyOf::KeyOf;
    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(TextKit& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(TextKit& kit);
};

} // namespace HPS
