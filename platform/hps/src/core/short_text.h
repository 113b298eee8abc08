#pragma once
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace HPS::scene
{

// Text of any length in 16 bytes; up to 15 bytes of it need no memory of their own.
class ShortText
{
public:
    ShortText() = default;
    ShortText(ShortText const&) = delete;
    ShortText& operator=(ShortText const&) = delete;
    ~ShortText() { clear(); }
    ShortText& operator=(std::string_view text) // of no part of this one
    {
        clear();
        char* place = bytes_.data();
        if (text.size() > inlineCapacity) {
            Long const apart{new char[text.size()], static_cast<std::uint32_t>(text.size())};
            std::memcpy(bytes_.data(), &apart, sizeof apart);
            place = apart.bytes;
        }
        std::copy(text.begin(), text.end(), place);
        size_ = static_cast<std::uint8_t>(text.size() > inlineCapacity ? isLong : text.size());
        return *this;
    }

    operator std::string_view() const
    {
        if (size_ != isLong) return {bytes_.data(), size_};
        auto const apart = longText();
        return {apart.bytes, apart.size};
    }
    bool empty() const { return size_ == 0; }
    friend bool operator==(ShortText const& text, std::string_view other)
    {
        return std::string_view(text) == other;
    }

private:
    static constexpr std::size_t inlineCapacity = 15;
    static constexpr std::uint8_t isLong = 0xFF;
#pragma pack(push, 4)
    struct Long {
        char* bytes; // we own them
        std::uint32_t size;
    };
#pragma pack(pop)
    static_assert(sizeof(Long) <= inlineCapacity);

    Long longText() const
    {
        Long apart;
        std::memcpy(&apart, bytes_.data(), sizeof apart);
        return apart;
    }
    void clear()
    {
        if (size_ == isLong) delete[] longText().bytes;
        size_ = 0;
    }

    alignas(char*) std::array<char, inlineCapacity> bytes_{};
    std::uint8_t size_ = 0;
};
static_assert(sizeof(ShortText) == 16);

} // namespace HPS::scene
