#include "element_codec.h"
#include <algorithm>
#include <array>
#include <cmath>

namespace HPS::scene
{
namespace
{

constexpr std::array channels{&RGBAColor::red, &RGBAColor::green, &RGBAColor::blue, &RGBAColor::alpha};

// How the channels of colours are stored: as they are, or as whole numbers of so many steps from 0 to 1.
constexpr std::uint32_t exactColors = 0;
constexpr std::uint32_t byteSteps = 255;
constexpr std::uint32_t mostSteps = 0xFFFF;

std::uint32_t stepsFor(std::vector<RGBAColor> const& colors, unsigned bits)
{
    bool unit = true, bytes = true;
    for (auto const& color : colors)
        for (auto const channel : channels) {
            auto const c = color.*channel;
            unit = unit && c >= 0 && c <= 1;
            bytes = bytes && unit && std::round(c * byteSteps) / byteSteps == c;
        }
    if (bytes && (bits == 0 || bits >= 8)) return byteSteps; // nothing is lost, and it is shorter
    return unit && bits > 0 && bits <= 16 ? (1u << bits) - 1 : exactColors;
}

// A direction as the point where it leaves the octahedron |x| + |y| + |z| = 1, whose lower half is folded
// outwards over the upper one: two numbers from -1 to 1.
constexpr float octahedronSteps = 32767;
float signOf(float value)
{
    return value < 0 ? -1.0f : 1.0f;
}
std::array<float, 2> folded(float x, float y)
{
    return {(1 - std::abs(y)) * signOf(x), (1 - std::abs(x)) * signOf(y)};
}

bool areUnit(std::vector<Vector> const& directions)
{
    constexpr float tolerance = 1e-3f;
    return std::all_of(directions.begin(), directions.end(), [](Vector const& v) {
        return std::abs(v.x * v.x + v.y * v.y + v.z * v.z - 1) < tolerance;
    });
}

enum class DirectionForm : std::uint8_t { Exact, Octahedron };

} // namespace

void writeWords(Writer& out, std::span<std::uint32_t const> words, std::size_t stride)
{
    auto const count = words.size();
    auto* const planes = out.grow(count * 4).data();
    for (std::size_t i = 0; i < count; ++i) {
        auto const difference = words[i] - (i < stride ? 0 : words[i - stride]);
        auto const zigzag = (difference << 1) ^ (0u - (difference >> 31));
        for (std::size_t plane = 0; plane < 4; ++plane)
            planes[plane * count + i] = static_cast<std::byte>(zigzag >> (8 * plane));
    }
}

void readWords(Reader& in, std::span<std::uint32_t> words, std::size_t stride)
{
    auto const count = words.size();
    auto const* const planes = in.take(count * 4).data();
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t zigzag = 0;
        for (std::size_t plane = 0; plane < 4; ++plane)
            zigzag |= std::to_integer<std::uint32_t>(planes[plane * count + i]) << (8 * plane);
        auto const difference = (zigzag >> 1) ^ (0u - (zigzag & 1));
        words[i] = difference + (i < stride ? 0 : words[i - stride]);
    }
}

void writeFlags(Writer& out, std::vector<bool> const& flags)
{
    out.size(flags.size());
    for (std::size_t i = 0; i < flags.size(); i += 8) {
        std::uint8_t bits = 0;
        for (std::size_t k = 0; k < 8 && i + k < flags.size(); ++k)
            bits = static_cast<std::uint8_t>(bits | (flags[i + k] << k));
        out.scalar(bits);
    }
}

void readFlags(Reader& in, std::vector<bool>& flags)
{
    auto const count = in.size();
    if (count / 8 > in.left()) Reader::fail("a count of more than there is");
    auto const bytes = in.take(static_cast<std::size_t>(count + 7) / 8);
    flags.resize(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < flags.size(); ++i)
        flags[i] = ((std::to_integer<unsigned>(bytes[i / 8]) >> (i % 8)) & 1) != 0;
}

void writeColors(Writer& out, std::vector<RGBAColor> const& colors)
{
    auto const steps = stepsFor(colors, out.colorBits);
    out.scalar(steps);
    if (steps == exactColors) return writeArray(out, colors);
    out.size(colors.size());
    for (auto const channel : channels)
        for (auto const& color : colors) {
            auto const step = static_cast<std::uint16_t>(std::round(color.*channel * float(steps)));
            steps > byteSteps ? out.scalar(step) : out.scalar(static_cast<std::uint8_t>(step));
        }
}

void readColors(Reader& in, std::vector<RGBAColor>& colors)
{
    auto const steps = in.scalar<std::uint32_t>();
    if (steps > mostSteps) Reader::fail("colours in an unknown form");
    if (steps == exactColors) return readArray(in, colors);
    colors.resize(in.count(channels.size() * (steps > byteSteps ? 2 : 1)));
    for (auto const channel : channels)
        for (auto& color : colors)
            color.*channel =
                float(steps > byteSteps ? in.scalar<std::uint16_t>() : in.scalar<std::uint8_t>()) /
                float(steps);
}

void writeDirections(Writer& out, std::vector<Vector> const& directions)
{
    bool const packs = out.packsDirections && areUnit(directions);
    out.scalar(static_cast<std::uint8_t>(packs ? DirectionForm::Octahedron : DirectionForm::Exact));
    if (!packs) return writeArray(out, directions);
    std::vector<std::uint32_t> words;
    words.reserve(directions.size() * 2);
    for (auto const& v : directions) {
        auto const sum = std::abs(v.x) + std::abs(v.y) + std::abs(v.z);
        std::array<float, 2> place{v.x / sum, v.y / sum};
        if (v.z < 0) place = folded(place[0], place[1]);
        for (auto const p : place)
            words.push_back(static_cast<std::uint32_t>(std::lround((p + 1) * octahedronSteps)));
    }
    out.size(directions.size());
    writeWords(out, words, 2);
}

void readDirections(Reader& in, std::vector<Vector>& directions)
{
    auto const form = in.scalar<std::uint8_t>();
    if (form == static_cast<std::uint8_t>(DirectionForm::Exact)) return readArray(in, directions);
    if (form != static_cast<std::uint8_t>(DirectionForm::Octahedron))
        Reader::fail("directions in an unknown form");
    directions.resize(in.count(2 * sizeof(std::uint32_t)));
    std::vector<std::uint32_t> words(directions.size() * 2);
    readWords(in, words, 2);
    for (std::size_t i = 0; i < directions.size(); ++i) {
        auto const place = [&](std::size_t part) {
            return std::clamp(static_cast<float>(words[2 * i + part]) / octahedronSteps - 1, -1.0f, 1.0f);
        };
        float x = place(0), y = place(1);
        auto const z = 1 - std::abs(x) - std::abs(y);
        if (z < 0) {
            auto const unfolded = folded(x, y);
            x = unfolded[0], y = unfolded[1];
        }
        auto const length = std::sqrt(x * x + y * y + z * z);
        directions[i] = Vector(x / length, y / length, z / length);
    }
}

void writeFacelist(Writer& out, std::vector<int> const& facelist)
{
    auto const each = facelist.empty() ? 0 : facelist[0];
    auto const stride = static_cast<std::size_t>(std::max(each, 0)) + 1;
    bool uniform = each > 0 && facelist.size() % stride == 0;
    for (std::size_t i = 0; uniform && i < facelist.size(); i += stride) uniform = facelist[i] == each;
    out.size(uniform ? stride - 1 : 0);
    std::vector<std::uint32_t> words;
    words.reserve(facelist.size());
    for (std::size_t i = 0; i < facelist.size(); ++i)
        if (!uniform || i % stride != 0) words.push_back(static_cast<std::uint32_t>(facelist[i]));
    out.size(words.size());
    writeWords(out, words, 1);
}

void readFacelist(Reader& in, std::vector<int>& facelist)
{
    auto const each = in.size();
    std::vector<std::uint32_t> words(in.count(sizeof(std::uint32_t)));
    readWords(in, words, 1);
    if (each > words.size() || (each > 0 && words.size() % each != 0))
        Reader::fail("a facelist that ends within a face");
    facelist.clear();
    facelist.reserve(words.size() + (each > 0 ? words.size() / each : 0));
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (each > 0 && i % each == 0) facelist.push_back(static_cast<int>(each));
        facelist.push_back(static_cast<int>(words[i]));
    }
}

} // namespace HPS::scene
