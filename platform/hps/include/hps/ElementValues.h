#pragma once
#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <vector>

namespace HPS
{

// A value per element, for some of the elements. Empty if no element has one.
template <class T> struct ElementValues {
    std::vector<T> values;
    std::vector<bool> isSet; // as long as `values`, or empty where every element has its value

    bool Empty() const { return values.empty(); }
    bool IsSet(std::size_t i) const { return i < values.size() && (isSet.empty() || isSet[i]); }
    // std::length_error for places that no memory has room for.
    void SetRange(std::size_t start, std::size_t count, T const from[]);
    void UnsetRange(std::size_t start, std::size_t count);
    // For `count` elements; false if none has a value.
    bool Show(std::size_t count, std::vector<bool>& set, std::vector<T>& out) const;
    bool operator==(ElementValues const&) const = default;
};

template <class T> void ElementValues<T>::SetRange(std::size_t start, std::size_t count, T const from[])
{
    if (count == 0) return;
    if (start > values.max_size() - count) throw std::length_error("More values than any geometry has");
    auto const old = values.size();
    bool const gap = start > old;
    if (start + count > old) values.resize(start + count);
    if (gap || !isSet.empty()) {
        if (isSet.empty()) isSet.assign(old, true);
        isSet.resize(values.size(), false);
        std::fill_n(isSet.begin() + static_cast<std::ptrdiff_t>(start), count, true);
    }
    std::copy_n(from, count, values.begin() + static_cast<std::ptrdiff_t>(start));
}

template <class T> void ElementValues<T>::UnsetRange(std::size_t start, std::size_t count)
{
    if (start >= values.size() || count == 0) return;
    count = std::min(count, values.size() - start);
    if (isSet.empty()) isSet.assign(values.size(), true);
    for (auto i = start; i < start + count; ++i) isSet[i] = false, values[i] = T();
    if (std::find(isSet.begin(), isSet.end(), true) == isSet.end()) values.clear(), isSet.clear();
}

template <class T>
bool ElementValues<T>::Show(std::size_t count, std::vector<bool>& set, std::vector<T>& out) const
{
    if (Empty()) return false;
    count = std::max(count, values.size());
    out = values;
    out.resize(count);
    set.resize(count);
    for (std::size_t i = 0; i < count; ++i) set[i] = IsSet(i);
    return true;
}

} // namespace HPS
