#pragma once
#include <cstdint>
#include <string_view>
#include <type_traits>
#include <utility>

namespace HPS::scene
{

// A value without an enumerator is spelled by the compiler as a cast.
template <auto Value> constexpr bool hasEnumerator()
{
    constexpr std::string_view text = __PRETTY_FUNCTION__;
    constexpr std::string_view before = "Value = ";
    return text[text.find(before) + before.size()] != '(';
}

// The numbers below 64 that are values of the enumeration, a bit each.
template <class E> constexpr std::uint64_t enumerators()
{
    return []<std::size_t... I>(std::index_sequence<I...>)
    {
        return ((std::uint64_t(hasEnumerator<static_cast<E>(I)>()) << I) | ...);
    }
    (std::make_index_sequence<64>{});
}

template <class E> constexpr bool isEnumerator(std::uint32_t value)
{
    constexpr auto all = enumerators<E>();
    return value < 64 && ((all >> value) & 1) != 0;
}

} // namespace HPS::scene
