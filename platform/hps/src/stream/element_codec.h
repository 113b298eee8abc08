// Long lists inside geometry, in forms that compress well.
#pragma once
#include "bytes.h"
#include <hps/Color.h>
#include <hps/Vector.h>

namespace HPS::scene
{

// Each word as its difference from the one `stride` places before it, with the sign in the lowest bit, and
// then the first bytes of all words, the second ones, and so on. Nothing is lost.
void writeWords(Writer& out, std::span<std::uint32_t const> words, std::size_t stride);
// Fills all of `words`.
void readWords(Reader& in, std::span<std::uint32_t> words, std::size_t stride);

// Values that consist of floats alone, and lists of them.
template <class T> inline constexpr bool isWords = std::is_trivially_copyable_v<T> && sizeof(T) % 4 == 0 &&
                                                   alignof(T) == 4 && !std::is_enum_v<T>;

template <class T> void writeArray(Writer& out, std::vector<T> const& values)
{
    static_assert(isWords<T>);
    out.size(values.size());
    constexpr auto stride = sizeof(T) / 4;
    writeWords(out, {reinterpret_cast<std::uint32_t const*>(values.data()), values.size() * stride}, stride);
}
template <class T> void readArray(Reader& in, std::vector<T>& values)
{
    static_assert(isWords<T>);
    values.resize(in.count(sizeof(T)));
    constexpr auto stride = sizeof(T) / 4;
    readWords(in, {reinterpret_cast<std::uint32_t*>(values.data()), values.size() * stride}, stride);
}

void writeFlags(Writer& out, std::vector<bool> const& flags);
void readFlags(Reader& in, std::vector<bool>& flags);

// As bytes, or in out.colorBits bits a channel, where that says what they are.
void writeColors(Writer& out, std::vector<RGBAColor> const& colors);
void readColors(Reader& in, std::vector<RGBAColor>& colors);

// Directions of unit length on an octahedron, if out.packsDirections; else exactly.
void writeDirections(Writer& out, std::vector<Vector> const& directions);
void readDirections(Reader& in, std::vector<Vector>& directions);

// A facelist, without its counts where all faces have as many points and none is a hole.
void writeFacelist(Writer& out, std::vector<int> const& facelist);
void readFacelist(Reader& in, std::vector<int>& facelist);

} // namespace HPS::scene
