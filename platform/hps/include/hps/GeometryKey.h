#pragma once
#include <hps/Key.h>

namespace HPS
{

// Any geometry.
class GeometryKey : public KeyOf<Type::GeometryKey>
{
public:
    using KeyOf::KeyOf;

    // Drawn later the higher it is.
    GeometryKey& SetPriority(int priority);
    GeometryKey& UnsetPriority();
    bool ShowPriority(int& priority) const;
};

// Base of the handles of one kind of geometry.
template <HPS::Type Expected, class KitType> class GeometryKeyOf : public KeyOf<Expected, GeometryKey>
{
public:
    using Kit = KitType;
    using KeyOf<Expected, GeometryKey>::KeyOf;

    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(KitType& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(KitType& kit);

    // The shape as it stands, and a change of it, written at once; no more than Show and Consume. A change
    // that could not be inserted is not made.
    template <class F> bool read(F&& f) const
    {
        KitType kit;
        if (!Show(kit)) return false;
        f(static_cast<KitType const&>(kit).data());
        return true;
    }
    template <class F> void edit(F&& f)
    {
        KitType kit;
        if (!Show(kit)) return;
        f(kit.data());
        Consume(kit);
    }
};

} // namespace HPS
