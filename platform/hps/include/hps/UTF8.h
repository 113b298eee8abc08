#pragma once
#include <compare>
#include <cstddef>
#include <string>
#include <string_view>

namespace HPS
{

// Text, held as UTF-8. Bytes and wide characters that are no valid Unicode become U+FFFD.
class UTF8
{
public:
    UTF8() = default;
    UTF8(char const* utf8); // null counts as empty
    UTF8(std::string_view utf8);
    UTF8(std::string const& utf8) : UTF8(std::string_view(utf8)) {}
    UTF8(wchar_t const* wide); // null counts as empty
    UTF8(std::wstring_view wide);
    UTF8(std::wstring const& wide) : UTF8(std::wstring_view(wide)) {}

    // Zero-terminated; valid until this text changes.
    char const* GetBytes() const { return bytes_.c_str(); }
    operator char const*() const { return GetBytes(); }

    // In bytes, without the terminator.
    std::size_t GetLength() const { return bytes_.size(); }
    std::string const& Str() const { return bytes_; }

    // In wide characters, UTF-16 or UTF-32 by the size of wchar_t. Returns the number of wide characters.
    std::size_t ToWStr(std::wstring& out) const;
    std::wstring ToWStr() const;

    bool Empty() const { return bytes_.empty(); }
    bool IsValid() const { return !Empty(); }
    void Reset() { bytes_.clear(); }

    UTF8& operator+=(UTF8 const& other);
    friend UTF8 operator+(UTF8 left, UTF8 const& right) { return left += right; }
    friend bool operator==(UTF8 const&, UTF8 const&) = default;
    friend auto operator<=>(UTF8 const&, UTF8 const&) = default;
    friend bool operator==(UTF8 const& left, char const* right) { return left.bytes_ == right; }

private:
    std::string bytes_;
};

} // namespace HPS
