#include "structure.h"
#include "subscriptions.h"
#include "user_data.h"

namespace HPS
{
using namespace scene;

namespace
{

// Where the bytes of a key that can bear them are kept, or null.
std::unique_ptr<UserData>* userDataOf(Key const& key)
{
    if (auto* const segment = store().resolve<SegmentRecord>(key)) return &segment->userData;
    if (auto* const geometry = store().resolve<GeometryRecord>(key)) return &geometry->userData;
    return nullptr;
}

UserData const* shownUserData(Key const& key)
{
    auto const* const place = userDataOf(key);
    return place ? place->get() : nullptr;
}

SlotIndex ownerOf(Key const& key)
{
    auto const* const record = store().resolve(key.Index());
    // All records but portfolios have an owner, and portfolios are of a plain type.
    if (!record || record->type == Type::PortfolioKey) return 0;
    return static_cast<OwnedRecord const*>(record)->owner;
}

} // namespace

HPS::Type Key::Type() const
{
    auto const* const record = store().resolve(index_);
    return record ? record->type : HPS::Type::None;
}

void Key::Delete()
{
    if (auto* const record = store().resolve(index_)) remove(*record);
}

bool Key::HasOwner() const
{
    return ownerOf(*this) != 0;
}

SegmentKey Key::Owner() const
{
    auto const owner = ownerOf(*this);
    return owner ? SegmentKey(store().indexOf(owner)) : SegmentKey();
}

SegmentKey Key::Up() const
{
    return Owner();
}

UTF8 Key::Name() const
{
    auto const* const segment = store().resolve<SegmentRecord>(*this);
    return segment ? UTF8(segment->name) : UTF8();
}

Key& Key::SetUserData(std::int64_t index, std::size_t byteCount, byte const data[])
{
    if (byteCount != 0 && !data) {
        raiseError("User data refused: there are no bytes");
    } else if (auto* const place = userDataOf(*this)) {
        if (!*place) *place = std::make_unique<UserData>();
        (*place)->set(index, {data, byteCount});
    }
    return *this;
}

Key& Key::SetUserData(std::int64_t index, ByteArray const& data)
{
    return SetUserData(index, data.size(), data.data());
}

Key& Key::SetUserData(IntPtrTArray const& indices, ByteArrayArray const& data)
{
    if (indices.size() != data.size())
        raiseError("User data refused: as many indices as byte strings are asked for");
    else
        for (std::size_t i = 0; i < indices.size(); ++i) SetUserData(indices[i], data[i]);
    return *this;
}

Key& Key::UnsetUserData(std::int64_t index)
{
    if (auto* const place = userDataOf(*this); place && *place) (*place)->unset(index);
    return *this;
}

Key& Key::UnsetUserData(IntPtrTArray const& indices)
{
    for (auto const index : indices) UnsetUserData(index);
    return *this;
}

Key& Key::UnsetAllUserData()
{
    if (auto* const place = userDataOf(*this)) place->reset();
    return *this;
}

std::size_t Key::ShowUserDataCount() const
{
    auto const* const data = shownUserData(*this);
    return data ? data->size() : 0;
}

bool Key::ShowUserDataIndices(IntPtrTArray& indices) const
{
    indices.clear();
    if (auto const* const data = shownUserData(*this))
        data->forEach([&](UserData::Entry const& entry) { indices.push_back(entry.index); });
    return !indices.empty();
}

bool Key::ShowUserData(std::int64_t index, ByteArray& out) const
{
    bool found = false;
    if (auto const* const data = shownUserData(*this))
        data->forEach([&](UserData::Entry const& entry) {
            if (entry.index != index) return;
            out.assign(entry.bytes.begin(), entry.bytes.end());
            found = true;
        });
    return found;
}

bool Key::ShowUserData(IntPtrTArray& indices, ByteArrayArray& out) const
{
    ShowUserDataIndices(indices);
    out.clear();
    if (auto const* const data = shownUserData(*this))
        data->forEach(
            [&](UserData::Entry const& entry) { out.emplace_back(entry.bytes.begin(), entry.bytes.end()); });
    return !indices.empty();
}

SegmentKey IncludeKey::GetTarget() const
{
    auto const* const include = store().resolve<IncludeRecord>(*this);
    return include ? SegmentKey(store().indexOf(include->target)) : SegmentKey();
}

} // namespace HPS
