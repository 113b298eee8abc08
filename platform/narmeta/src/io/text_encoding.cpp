#include "text_encoding.h"

#include <array>
#include <cstdint>

#include <QStringDecoder>

namespace NarMetaInfra
{
namespace
{
constexpr wchar_t Replacement = 0xFFFD;

// Windows-1252, 0x80 to 0x9F. The five codes without a character keep their Latin-1 value.
constexpr std::array<std::uint16_t, 32> Windows1252Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

bool isHigh(char c)
{
    return static_cast<std::uint8_t>(c) >= 0x80;
}

std::wstring decodedWith(QStringDecoder& decoder, std::string_view bytes)
{
    QString const text = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return text.toStdWString();
}
} // namespace

bool isUtf8(std::string_view bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    static_cast<void>(decodedWith(decoder, bytes));
    return !decoder.hasError();
}

TextEncoding guessEncoding(std::string_view bytes)
{
    if (isUtf8(bytes)) return TextEncoding::Utf8;
    // Level 1 of the Chinese plane has lead bytes B0 to D7 and trail bytes A1 to FE: all common characters.
    std::size_t common = 0, other = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (!isHigh(bytes[i])) continue;
        auto const lead = static_cast<std::uint8_t>(bytes[i]);
        auto const trail = i + 1 < bytes.size() ? static_cast<std::uint8_t>(bytes[i + 1]) : 0;
        if (trail < 0xA1 || trail == 0xFF || lead < 0xA1 || lead > 0xF7) return TextEncoding::Windows1252;
        ++(lead >= 0xB0 && lead <= 0xD7 ? common : other);
        ++i;
    }
    return common > other ? TextEncoding::Gbk : TextEncoding::Windows1252;
}

std::wstring wideFromBytes(std::string_view bytes)
{
    auto const encoding = guessEncoding(bytes);
    if (encoding == TextEncoding::Utf8) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        return decodedWith(decoder, bytes);
    }
    if (encoding == TextEncoding::Gbk) {
        QStringDecoder decoder("GB18030", QStringDecoder::Flag::Stateless);
        if (decoder.isValid()) {
            auto text = decodedWith(decoder, bytes);
            if (!decoder.hasError()) return text;
        }
    }
    std::wstring text;
    text.reserve(bytes.size());
    for (char const c : bytes) {
        auto const code = static_cast<std::uint8_t>(c);
        text += static_cast<wchar_t>(code >= 0x80 && code < 0xA0 ? Windows1252Upper[code - 0x80] : code);
    }
    return text;
}

std::wstring wideFromUtf16(char16_t const* text, std::size_t length)
{
    std::wstring wide;
    wide.reserve(length);
    for (std::size_t i = 0; i < length; ++i) {
        char32_t const unit = text[i];
        bool const isLead = unit >= 0xD800 && unit < 0xDC00;
        bool const isSurrogate = unit >= 0xD800 && unit < 0xE000;
        if (isLead && i + 1 < length && text[i + 1] >= 0xDC00 && text[i + 1] < 0xE000) {
            wide += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (text[++i] - 0xDC00));
        } else {
            wide += isSurrogate ? Replacement : static_cast<wchar_t>(unit);
        }
    }
    return wide;
}

std::string utf8FromWide(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

std::wstring trimmed(std::wstring_view text)
{
    constexpr std::wstring_view Blanks = L" \t\r\n";
    auto const first = text.find_first_not_of(Blanks);
    if (first == std::wstring_view::npos) return {};
    return std::wstring(text.substr(first, text.find_last_not_of(Blanks) + 1 - first));
}

std::wstring idText(std::wstring_view name)
{
    static constexpr wchar_t Hex[] = L"0123456789ABCDEF";
    std::wstring text;
    text.reserve(name.size());
    for (char const c : utf8FromWide(name)) {
        auto const code = static_cast<std::uint8_t>(c);
        if (code > 0x20 && code < 0x7F && code != '%' && code != '/' && code != '\\') {
            text += static_cast<wchar_t>(code);
        } else {
            text += {L'%', Hex[code >> 4], Hex[code & 15]};
        }
    }
    return text;
}
} // namespace NarMetaInfra
