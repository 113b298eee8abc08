// Strings of Part 21: what they mean character by character.
#include "StepEntities.h"

#include <charconv>
#include <cstdint>

namespace NarMetaInfra
{
namespace
{
std::optional<std::uint32_t> hexadecimal(std::string_view digits)
{
    std::uint32_t code = 0;
    auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, 16);
    if (error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
    return code;
}

bool isScalar(std::uint32_t code)
{
    return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
}

// Length in bytes of a well-formed UTF-8 sequence at the front; 0 if there is none.
std::size_t sequence(std::string_view text, std::uint32_t& code)
{
    auto const lead = static_cast<std::uint8_t>(text.front());
    std::size_t const length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 0;
    if (length == 0 || lead > 0xF4 || text.size() < length) return 0;
    code = lead & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        auto const next = static_cast<std::uint8_t>(text[i]);
        if ((next & 0xC0) != 0x80) return 0;
        code = code << 6 | (next & 0x3Fu);
    }
    return isScalar(code) ? length : 0;
}

class TextDecoder
{
public:
    explicit TextDecoder(std::string_view text) : Text(text) {}

    std::wstring decode()
    {
        while (!Text.empty()) {
            std::uint32_t code = 0;
            if (Text.starts_with("''"))
                put('\'', 2);
            else if (Text.starts_with("\\\\"))
                put('\\', 2);
            else if (Text.starts_with("\\X2\\"))
                codes(4);
            else if (Text.starts_with("\\X4\\"))
                codes(8);
            else if (Text.starts_with("\\X\\") && Text.size() >= 5 && hexadecimal(Text.substr(3, 2)))
                put(*hexadecimal(Text.substr(3, 2)), 5);
            else if (Text.starts_with("\\S\\") && Text.size() >= 4)
                put(static_cast<std::uint8_t>(Text[3]) + 0x80u, 4);
            else if (Text.starts_with("\\P") && Text.size() >= 4 && Text[3] == '\\')
                Text.remove_prefix(4); // the page of ISO 8859; the first one stands for all
            else if (auto const length = sequence(Text, code))
                put(code, length);
            else
                put(static_cast<std::uint8_t>(Text.front()), 1);
        }
        return Words;
    }

private:
    void put(std::uint32_t code, std::size_t length)
    {
        // What no text may hold would spoil every file that the words are written to.
        bool const isControl = code < 0x20 && code != '\n' && code != '\t';
        if (isScalar(code) && !isControl && (code & 0xFFFE) != 0xFFFE)
            Words.push_back(static_cast<wchar_t>(code));
        Text.remove_prefix(length);
    }

    // Codes of `width` digits up to the directive that ends them.
    void codes(std::size_t width)
    {
        Text.remove_prefix(4);
        std::uint32_t high = 0;
        while (Text.size() >= width && Text.front() != '\\') {
            auto const code = hexadecimal(Text.substr(0, width));
            if (!code) break;
            bool const isLow = *code >= 0xDC00 && *code <= 0xDFFF;
            if (isLow && high)
                put(0x10000 + ((high - 0xD800) << 10) + (*code - 0xDC00), width);
            else
                put(*code, width);
            high = *code >= 0xD800 && *code <= 0xDBFF ? *code : 0;
        }
        if (Text.starts_with("\\X0\\")) Text.remove_prefix(4);
    }

    std::string_view Text;
    std::wstring Words;
};
} // namespace

std::wstring decodeStepText(std::string_view characters)
{
    return TextDecoder(characters).decode();
}
} // namespace NarMetaInfra
