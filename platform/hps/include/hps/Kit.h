// What all attribute kits share. A kit declares its aspects once, as a struct of optionals with a table
// `aspects()`; Show, Set and Unset, comparison, inheritance, dump and the tests are derived from that table.
#pragma once
#include <hps/Key.h>
#include <optional>
#include <string_view>
#include <tuple>
#include <utility>

namespace HPS
{

// One row of a kit's table. `id` stands in files and is never used again for something else.
template <class Data, class T> struct Aspect {
    using Value = T;
    std::uint16_t id;
    std::string_view name;
    std::optional<T> Data::*slot;

    std::optional<T> const& get(Data const& data) const { return data.*slot; }
    void put(Data& data, std::optional<T> value) const { data.*slot = std::move(value); }
};
template <class Data, class T> Aspect(int, char const*, std::optional<T> Data::*) -> Aspect<Data, T>;

// Calls f(aspect) for each aspect of Data, in the order of its table.
template <class Data, class F> constexpr void forEachAspect(F&& f)
{
    std::apply([&](auto const&... aspect) { (f(aspect), ...); }, Data::aspects());
}

namespace detail
{

struct AnyOptional {
    template <class T> operator std::optional<T>() const;
};
template <class Data, std::size_t... I> constexpr bool takes(std::index_sequence<I...>)
{
    return requires
    {
        Data{(static_cast<void>(I), AnyOptional{})...};
    };
}
template <class Data, std::size_t N = 0> constexpr std::size_t memberCount()
{
    if constexpr (takes<Data>(std::make_index_sequence<N + 1>{}))
        return memberCount<Data, N + 1>();
    else
        return N;
}

// The member that an aspect's operations work on: where it lives and what it holds.
template <class M> struct MemberOf;
template <class D, class T> struct MemberOf<std::optional<T> D::*> {
    using Data = D;
    using Value = T;
};

template <auto Slot, class Self, class T> Self& set(Self& self, T&& value)
{
    using Member = MemberOf<decltype(Slot)>;
    self.edit(
        [&](typename Member::Data& data) { data.*Slot = typename Member::Value(std::forward<T>(value)); });
    return self;
}
template <auto Slot, class Self> Self& unset(Self& self)
{
    self.edit([](typename MemberOf<decltype(Slot)>::Data& data) { (data.*Slot).reset(); });
    return self;
}
// Several outs take the parts of a tuple, a single out the value itself. They stay as they are if nothing is
// set.
template <auto Slot, class Self, class... T> bool show(Self const& self, T&... out)
{
    typename MemberOf<decltype(Slot)>::Data const& data = self.data();
    auto const& value = data.*Slot;
    if (!value) return false;
    if constexpr (sizeof...(T) == 1)
        (out, ...) = *value;
    else
        std::tie(out...) = *value;
    return true;
}

} // namespace detail

// An aspect missing from aspects() stops the build.
template <class Data>
concept CompleteKit = detail::memberCount<Data>()
== std::tuple_size_v<decltype(Data::aspects())>;

template <class Data> bool isEmpty(Data const& data)
{
    return data == Data{};
}

// Base of the operations that a kit and its control share.
template <class Self> class Operations
{
protected:
    Self& self() { return static_cast<Self&>(*this); }
    Self const& self() const { return static_cast<Self const&>(*this); }
};

// The three operations of an aspect that holds one value. It only
// spells names.
#define HPS_ASPECT(Name, Value, slot)                                                                        \
    Self& Set##Name(Value const& value)                                                                      \
    {                                                                                                        \
        return ::HPS::detail::set<&Data::slot>(this->self(), value);                                         \
    }                                                                                                        \
    Self& Unset##Name()                                                                                      \
    {                                                                                                        \
        return ::HPS::detail::unset<&Data::slot>(this->self());                                              \
    }                                                                                                        \
    bool Show##Name(Value& value) const                                                                      \
    {                                                                                                        \
        return ::HPS::detail::show<&Data::slot>(this->self(), value);                                        \
    }

// The same for an aspect of several parts: their declarations as arguments, then as outs, then their names.
#define HPS_ASPECT_PARTS(Name, slot, Arguments, Outs, ...)                                                   \
    Self& Set##Name Arguments                                                                                \
    {                                                                                                        \
        return ::HPS::detail::set<&Data::slot>(this->self(), std::tuple{__VA_ARGS__});                       \
    }                                                                                                        \
    Self& Unset##Name()                                                                                      \
    {                                                                                                        \
        return ::HPS::detail::unset<&Data::slot>(this->self());                                              \
    }                                                                                                        \
    bool Show##Name Outs const                                                                               \
    {                                                                                                        \
        return ::HPS::detail::show<&Data::slot>(this->self(), __VA_ARGS__);                                  \
    }

// A kit: a value that the caller owns. Set replaces an aspect, Unset takes it away, Show returns false and
// leaves its arguments as they are if the aspect is not set.
template <class Self, template <class> class Ops> class Kit : public Ops<Self>
{
public:
    using Data = typename Ops<Self>::Data;

    bool Empty() const { return data_ == Data{}; }
    void Reset() { data_ = {}; }
    Self& UnsetEverything()
    {
        data_ = {};
        return this->self();
    }

    Data const& data() const { return data_; }
    template <class F> void edit(F&& f) { f(data_); }
    friend bool operator==(Kit const& a, Kit const& b) { return a.data_ == b.data_; }

private:
    Data data_;
};

namespace detail
{
// A segment's own values of one kit; empty values if it has none or the key is stale. Valid until the next
// write.
template <class Data> Data const& storedKit(Key const& segment);
// Replaces them and leaves a change mark, if they differ. Nothing happens for a stale key.
template <class Data> void storeKit(Key const& segment, Data&& data);
} // namespace detail

// The attribute as it stands on a segment: the same operations as the kit's, each edit written at once.
template <class Self, template <class> class Ops> class Control : public Ops<Self>
{
public:
    using Data = typename Ops<Self>::Data;
    explicit Control(Key const& segment) : segment_(segment) {}

    Self& UnsetEverything()
    {
        edit([](Data& data) { data = {}; });
        return this->self();
    }

    Data const& data() const { return detail::storedKit<Data>(segment_); }
    template <class F> void edit(F&& f)
    {
        Data copy = data();
        f(copy);
        detail::storeKit<Data>(segment_, std::move(copy));
    }
    Key const& segment() const { return segment_; }

private:
    Key segment_;
};

} // namespace HPS
