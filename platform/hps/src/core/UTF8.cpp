#include <cstdint>
#include <hps/UTF8.h>

namespace HPS
{
namespace
{

constexpr char32_t replacement = 0xFFFD;

bool isScalar(char32_t c)
{
    return c < 0xD800 || (c > 0xDFFF && c <= 0x10FFFF);
}

void append(std::string& out, char32_t c)
{
    if (!isScalar(c)) c = replacement;
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

// The next character of a non-empty text, which loses its bytes. A wrong sequence costs one byte.
char32_t take(std::string_view& text)
{
    auto const byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    auto const first = byteAt(0);
    std::size_t const length = first < 0x80                    ? 1
                               : first >= 0xC2 && first < 0xE0 ? 2
                               : first >> 4 == 0xE             ? 3
                               : first >= 0xF0 && first < 0xF5 ? 4
                                                               : 0;
    char32_t c = length == 1 ? first : first & (0x7F >> length);
    bool valid = length > 0 && length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = byteAt(i) >> 6 == 2;
        c = c << 6 | (byteAt(i) & 0x3F);
    }
    valid = valid && isScalar(c) && !(length == 3 && c < 0x800) && !(length == 4 && c < 0x10000);
    text.remove_prefix(valid ? length : 1);
    return valid ? c : replacement;
}

} // namespace

UTF8::UTF8(char const* utf8) : UTF8(utf8 ? std::string_view(utf8) : std::string_view()) {}

UTF8::UTF8(wchar_t const* wide) : UTF8(wide ? std::wstring_view(wide) : std::wstring_view()) {}

UTF8::UTF8(std::string_view utf8)
{
    bytes_.reserve(utf8.size());
    while (!utf8.empty()) append(bytes_, take(utf8));
}

UTF8::UTF8(std::wstring_view wide)
{
    bytes_.reserve(wide.size());
    for (std::size_t i = 0; i < wide.size(); ++i) {
        auto c = static_cast<char32_t>(wide[i]);
        bool const isPair = sizeof(wchar_t) == 2 && c >> 10 == 0x36 && i + 1 < wide.size() &&
                            static_cast<char32_t>(wide[i + 1]) >> 10 == 0x37;
        if (isPair) c = 0x10000 + ((c & 0x3FF) << 10) + (static_cast<char32_t>(wide[++i]) & 0x3FF);
        append(bytes_, c);
    }
}

std::size_t UTF8::ToWStr(std::wstring& out) const
{
    out.clear();
    for (std::string_view rest = bytes_; !rest.empty();) {
        auto const c = take(rest);
        if (sizeof(wchar_t) == 2 && c >= 0x10000) {
            out += static_cast<wchar_t>(0xD800 + ((c - 0x10000) >> 10));
            out += static_cast<wchar_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
        } else {
            out += static_cast<wchar_t>(c);
        }
    }
    return out.size();
}

std::wstring UTF8::ToWStr() const
{
    std::wstring out;
    ToWStr(out);
    return out;
}

UTF8& UTF8::operator+=(UTF8 const& other)
{
    bytes_ += other.bytes_;
    return *this;
}

} // namespace HPS
