#pragma once

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace NarMetaInfra
{

/// Numbers in a row, floats in the shortest form that reads back equal, with a line break every 24.
template <class Numbers> std::string JoinNumbers(Numbers const& numbers)
{
    std::string text;
    text.reserve(numbers.size() * 8);
    std::size_t column = 0;
    for (auto number : numbers) {
        char digits[32];
        auto const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        if (column > 0) text += column % 24 == 0 ? '\n' : ' ';
        text.append(digits, end);
        ++column;
    }
    return text;
}

/// The whole text as one number; nothing for anything else, for one out of range, or for one that is not
/// finite.
template <class Number> std::optional<Number> ParseNumber(std::string_view text)
{
    Number number{};
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    if constexpr (std::is_floating_point_v<Number>)
        if (!std::isfinite(number)) return {};
    return number;
}

/// Numbers apart by white space; nothing if one of them is none.
template <class Number> std::optional<std::vector<Number>> SplitNumbers(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<Number> numbers;
    for (auto start = text.find_first_not_of(blanks); start != std::string_view::npos;) {
        auto const end = std::min(text.find_first_of(blanks, start), text.size());
        auto const number = ParseNumber<Number>(text.substr(start, end - start));
        if (!number) return {};
        numbers.push_back(*number);
        start = text.find_first_not_of(blanks, end);
    }
    return numbers;
}

} // namespace NarMetaInfra
