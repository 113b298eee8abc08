// The definitions behind a kit's control and its operations on a segment key; each kit's source makes its
// own.
#pragma once
#include "kit_values.h"
#include "merge.h"
#include "shared_kits.h"
#include "subscriptions.h"

namespace HPS
{

namespace detail
{

template <class Data> Data const& storedKit(Key const& segment)
{
    auto const* const record = scene::store().resolve<scene::SegmentRecord>(segment);
    return scene::valuesOf<Data>(record ? record->kit(scene::kitKind<Data>) : nullptr);
}

template <class Data> void storeKit(Key const& segment, Data&& data)
{
    using namespace scene;
    auto* const record = store().resolve<SegmentRecord>(segment);
    if (!record) return;
    constexpr auto kind = kitKind<Data>;
    auto const* const old = record->kit(kind);
    if (valuesOf<Data>(old) == data) return;
    if (!isFinite(data)) {
        std::string message; // g++ 12 takes a sum of literals known beforehand for an overrun
        message.append(nameOf(kind)).append(" refused: a value is no number");
        return raiseError(UTF8(message));
    }
    record->setKit(kind, sharedKit<Data>(std::move(data)));
    if constexpr (kind == KitKind::Bounding) {
        record->boundsKnown = false;
        invalidateBoundsAbove(*record);
        noteChange(*record, Change::Bounding);
    } else {
        noteChange(*record, Change::Attributes);
    }
}

} // namespace detail

namespace scene
{

template <class Kit> void setKit(Key const& segment, Kit const& kit)
{
    auto data = detail::storedKit<typename Kit::Data>(segment);
    merge(data, kit.data());
    detail::storeKit<typename Kit::Data>(segment, std::move(data));
}

template <class Kit> bool showKit(Key const& segment, Kit& kit)
{
    kit.edit([&](typename Kit::Data& data) { data = detail::storedKit<typename Kit::Data>(segment); });
    return !kit.Empty();
}

} // namespace scene

// Spells the operations of one kit on a key.
#define HPS_DEFINE_KIT_ON(KeyClass, Name)                                                                    \
    template Name##Data const& detail::storedKit<Name##Data>(Key const&);                                    \
    template void detail::storeKit<Name##Data>(Key const&, Name##Data&&);                                    \
    KeyClass& KeyClass::Set##Name(Name##Kit const& kit)                                                      \
    {                                                                                                        \
        return scene::setKit(*this, kit), *this;                                                             \
    }                                                                                                        \
    KeyClass& KeyClass::Unset##Name()                                                                        \
    {                                                                                                        \
        return detail::storeKit<Name##Data>(*this, {}), *this;                                               \
    }                                                                                                        \
    bool KeyClass::Show##Name(Name##Kit& kit) const                                                          \
    {                                                                                                        \
        return scene::showKit(*this, kit);                                                                   \
    }
#define HPS_DEFINE_KIT(Name) HPS_DEFINE_KIT_ON(SegmentKey, Name)
#define HPS_DEFINE_WINDOW_KIT(Name) HPS_DEFINE_KIT_ON(WindowKey, Name)

} // namespace HPS
