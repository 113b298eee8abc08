#pragma once

#include <string>
#include <string_view>

namespace NarMeta
{

/// Gives the bytes of the UTF-8 form of a wide text, one by one. Does not look at the locale.
template <class Take> constexpr void EncodeUtf8(std::wstring_view text, Take&& take)
{
    for (wchar_t c : text) {
        auto const code = static_cast<unsigned long>(c);
        int const tail = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
        constexpr unsigned long lead[] = {0, 0xc0, 0xe0, 0xf0};
        take(static_cast<unsigned char>(lead[tail] | (code >> (6 * tail))));
        for (int i = tail - 1; i >= 0; --i)
            take(static_cast<unsigned char>(0x80 | ((code >> (6 * i)) & 0x3f)));
    }
}

inline std::string ToUtf8(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    EncodeUtf8(text, [&bytes](unsigned char byte) { bytes += static_cast<char>(byte); });
    return bytes;
}

} // namespace NarMeta
