#pragma once

#include <narmeta/Utf8.h>

namespace NarMeta
{

/// The number by which tree, scene and model name one object. Stable from run to run for the same file.
using Id = unsigned long long;

/// Ids below this are group numbers of the tree (annotations, B-rep, views, ...): no object has one.
inline constexpr Id FirstObjectId = 1'000'000;

namespace detail
{

/// FNV-1a over bytes, then the 64-bit finaliser of MurmurHash3: FNV alone leaves the high bits of short texts
/// nearly equal.
class Hasher
{
public:
    constexpr void Byte(unsigned char byte) { state_ = (state_ ^ byte) * 0x100000001b3ULL; }
    constexpr void Number(Id number)
    {
        for (int shift = 0; shift < 64; shift += 8) Byte(static_cast<unsigned char>(number >> shift));
    }
    constexpr void Text(std::string_view text)
    {
        for (char c : text) Byte(static_cast<unsigned char>(c));
    }
    /// Takes the text as UTF-8, so that a wide and a narrow spelling of one name give one id.
    constexpr void Text(std::wstring_view text)
    {
        EncodeUtf8(text, [this](unsigned char byte) { Byte(byte); });
    }
    constexpr Id Value() const
    {
        Id h = state_;
        h = (h ^ (h >> 33)) * 0xff51afd7ed558ccdULL;
        h = (h ^ (h >> 33)) * 0xc4ceb9fe1a85ec53ULL;
        h ^= h >> 33;
        return h < FirstObjectId ? h + FirstObjectId : h;
    }

private:
    Id state_ = 0xcbf29ce484222325ULL;
};

} // namespace detail

/// Id of a persistent id, a path of them joined by '.', or any other text. Never 0, never a group number.
constexpr Id HashId(std::string_view pid)
{
    detail::Hasher hasher;
    hasher.Text(pid);
    return hasher.Value();
}

/// The same for wide text: equal to the id of its UTF-8 form.
constexpr Id HashId(std::wstring_view pid)
{
    detail::Hasher hasher;
    hasher.Text(pid);
    return hasher.Value();
}

/// Id of the @p ordinal -th thing of a @p kind ("face", "edge", ...) inside @p owner; a file's own entity
/// number serves as ordinal as well.
constexpr Id HashId(Id owner, std::string_view kind, Id ordinal)
{
    detail::Hasher hasher;
    hasher.Number(owner);
    hasher.Text(kind);
    hasher.Number(ordinal);
    return hasher.Value();
}

} // namespace NarMeta
