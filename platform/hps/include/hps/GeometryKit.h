#pragma once
#include <hps/Key.h>
#include <map>
#include <optional>
#include <tuple>

namespace HPS
{

// What every geometry kit carries beside its shape.
struct GeometryExtras {
    std::map<std::int64_t, ByteArray> userData;
    std::optional<int> priority; // drawn later the higher it is
    bool operator==(GeometryExtras const&) const = default;
};

// Base of the geometry kits.
template <class Self> class GeometryKit
{
public:
    Self& SetUserData(std::int64_t index, std::size_t byteCount, byte const data[])
    {
        extras_.userData[index] = byteCount ? ByteArray(data, data + byteCount) : ByteArray();
        return self();
    }
    Self& SetUserData(std::int64_t index, ByteArray const& data)
    {
        extras_.userData[index] = data;
        return self();
    }
    Self& SetUserData(IntPtrTArray const& indices, ByteArrayArray const& data)
    {
        if (indices.size() != data.size()) {
            detail::refuse("User data refused: as many indices as byte strings are asked for");
            return self();
        }
        for (std::size_t i = 0; i < indices.size(); ++i) extras_.userData[indices[i]] = data[i];
        return self();
    }
    Self& UnsetUserData(std::int64_t index)
    {
        extras_.userData.erase(index);
        return self();
    }
    Self& UnsetAllUserData()
    {
        extras_.userData.clear();
        return self();
    }
    std::size_t ShowUserDataCount() const { return extras_.userData.size(); }
    bool ShowUserData(std::int64_t index, ByteArray& data) const
    {
        auto const found = extras_.userData.find(index);
        if (found == extras_.userData.end()) return false;
        data = found->second;
        return true;
    }
    bool ShowUserData(IntPtrTArray& indices, ByteArrayArray& data) const
    {
        indices.clear();
        data.clear();
        for (auto const& [index, bytes] : extras_.userData) {
            indices.push_back(index);
            data.push_back(bytes);
        }
        return !indices.empty();
    }

    Self& SetPriority(int priority)
    {
        extras_.priority = priority;
        return self();
    }
    Self& UnsetPriority()
    {
        extras_.priority.reset();
        return self();
    }
    bool ShowPriority(int& priority) const
    {
        if (extras_.priority) priority = *extras_.priority;
        return extras_.priority.has_value();
    }

    GeometryExtras const& extras() const { return extras_; }
    GeometryExtras& extras() { return extras_; }

protected:
    friend bool operator==(GeometryKit const&, GeometryKit const&) = default;

private:
    Self& self() { return static_cast<Self&>(*this); }
    GeometryExtras extras_;
};

// Base of the kits whose shape is DataType.
template <class Self, class DataType> class GeometryKitOf : public GeometryKit<Self>
{
public:
    DataType const& data() const { return data_; }
    DataType& data() { return data_; }
    template <class F> bool read(F&& f) const
    {
        f(data_);
        return true;
    }
    template <class F> void edit(F&& f) { f(data_); }

    bool Empty() const { return data_ == DataType{}; }
    void Reset() { static_cast<Self&>(*this) = {}; }
    friend bool operator==(GeometryKitOf const&, GeometryKitOf const&) = default;

private:
    DataType data_;
};

// The shape in a kit.
template <class Self, class DataType> DataType& shapeOf(GeometryKitOf<Self, DataType>& kit)
{
    return kit.data();
}

// Base of the operations that a kit and the key of its kind share.
template <class Self> class GeometryOperations
{
protected:
    Self& self() { return static_cast<Self&>(*this); }
    Self const& self() const { return static_cast<Self const&>(*this); }
};

namespace detail
{
template <auto Slot, class Self, class T> Self& setField(Self& self, T const& value)
{
    self.edit([&](auto& data) { data.*Slot = value; });
    return self;
}
template <auto Slot, class Self, class T> bool showField(Self const& self, T& out)
{
    return self.read([&](auto const& data) { out = data.*Slot; });
}
} // namespace detail

// The operations of a field that always has a value. It only spells names.
#define HPS_FIELD(Name, Value, slot)                                                                         \
    Self& Set##Name(Value const& value)                                                                      \
    {                                                                                                        \
        return ::HPS::detail::setField<&Data::slot>(this->self(), value);                                    \
    }                                                                                                        \
    bool Show##Name(Value& value) const                                                                      \
    {                                                                                                        \
        return ::HPS::detail::showField<&Data::slot>(this->self(), value);                                   \
    }

// The same for a list, which counts as not set while it is empty.
#define HPS_FIELD_LIST(Name, Value, slot)                                                                    \
    Self& Set##Name(std::vector<Value> const& values)                                                        \
    {                                                                                                        \
        return ::HPS::detail::setField<&Data::slot>(this->self(), values);                                   \
    }                                                                                                        \
    Self& Set##Name(std::size_t count, Value const values[])                                                 \
    {                                                                                                        \
        return Set##Name(std::vector<Value>(values, values + count));                                        \
    }                                                                                                        \
    Self& Unset##Name()                                                                                      \
    {                                                                                                        \
        return Set##Name(std::vector<Value>());                                                              \
    }                                                                                                        \
    bool Show##Name(std::vector<Value>& values) const                                                        \
    {                                                                                                        \
        return ::HPS::detail::showField<&Data::slot>(this->self(), values) && !values.empty();               \
    }

} // namespace HPS
