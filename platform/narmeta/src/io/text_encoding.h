#pragma once

#include <string>
#include <string_view>

namespace NarMetaInfra
{
/// Encodings that names in model files come in.
enum class TextEncoding { Utf8, Gbk, Windows1252 };

bool isUtf8(std::string_view bytes);

/// Guess for text with bytes above 0x7F: UTF-8 if it is valid, GBK if all high bytes stand in pairs of the
/// common Chinese plane, Windows-1252 otherwise.
TextEncoding guessEncoding(std::string_view bytes);

/// Text of a name whose encoding nobody states. Never drops a name: a byte that has no meaning in
/// Windows-1252 becomes the Latin-1 control character of its value.
std::wstring wideFromBytes(std::string_view bytes);

/// Lone surrogates become U+FFFD.
std::wstring wideFromUtf16(char16_t const* text, std::size_t length);

std::string utf8FromWide(std::wstring_view text);

/// Without blanks at either end: many systems write a blank where there is no name.
std::wstring trimmed(std::wstring_view text);

/// Form of a name that can stand in an id: printable ASCII as it is, everything else percent-encoded in
/// UTF-8, so that narrowing it can't fail in any locale and two names never become one.
std::wstring idText(std::wstring_view name);
} // namespace NarMetaInfra
