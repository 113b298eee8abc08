#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <mora/Settings.h>

namespace ZELVizCore
{

namespace
{

constexpr Settings::Field fields[] = {
    {"BodyColor", &Settings::BodyColor, "colour of bodies and faces without one of their own"},
    {"EdgeColor", &Settings::EdgeColor, "colour of curves and body edges"},
    {"TessEdgeColor", &Settings::TessEdgeColor, "colour of the tessellation's edges"},
    {"VertexColor", &Settings::VertexColor, "colour of points and body vertices"},
    {"HighlightColor", &Settings::HighlightColor, "colour of what is highlighted"},
    {"BackgroundTopColor", &Settings::BackgroundTopColor, "upper colour of the background"},
    {"BackgroundBottomColor", &Settings::BackgroundBottomColor, "lower colour of the background"},
    {"GraphicalMode", &Settings::GraphicalMode, "read meshes for display only, no bodies"},
    {"ReadPersistentNames", &Settings::ReadPersistentNames, "keep the file's names of faces and edges"},
    {"UseOccurrenceData", &Settings::UseOccurrenceData,
     "let an occurrence override its part's colour and visibility"},
    {"NumProcessors", &Settings::NumProcessors, "most processors a reader may use, 0 for all", 0, 1024},
    {"UseMultiProcessing", &Settings::UseMultiProcessing, "read on several processors"},
    {"DisplayFeaturesInTree", &Settings::DisplayFeaturesInTree, "list features below a part"},
    {"DisplayBrepInTree", &Settings::DisplayBrepInTree, "list bodies below a part"},
    {"ClassicalOrientation", &Settings::ClassicalOrientation, "Y is up instead of Z"},
    {"ReadTimeLimit", &Settings::ReadTimeLimit, "seconds that reading a file may take, 0 for no limit", 0,
     86400},
    {"ReadMemoryLimit", &Settings::ReadMemoryLimit,
     "MiB that reading a file may take, 0 for three quarters of the memory", 0, 1 << 30},
    {"TessellationDistance", &Settings::TessellationDistance,
     "largest distance of triangles from a surface, in millionths of the part's size", 10, 100000},
    {"TessellationAngle", &Settings::TessellationAngle,
     "largest angle between neighbouring triangles of a surface, in degrees", 1, 90},
    {"CacheSize", &Settings::CacheSize, "MiB of read models kept for a second open, 0 for none", 0, 1 << 20},
};

using Range = std::pair<int, int>;

std::string toText(bool value)
{
    return value ? "true" : "false";
}

std::string toText(int value)
{
    return std::to_string(value);
}

std::string toText(RGBAColor const& color)
{
    std::array<char, 10> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x%02x", color.r, color.g, color.b, color.a);
    return text.data();
}

bool fromText(std::string_view text, Range, bool& value)
{
    constexpr std::string_view yes[] = {"true", "on", "yes", "1"};
    constexpr std::string_view no[] = {"false", "off", "no", "0"};
    value = std::ranges::find(yes, text) != std::end(yes);
    return value || std::ranges::find(no, text) != std::end(no);
}

bool fromText(std::string_view text, Range range, int& value)
{
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc{} && end == text.data() + text.size() && range.first <= value &&
           value <= range.second;
}

bool fromText(std::string_view text, Range, RGBAColor& color)
{
    if (!text.starts_with('#') || (text.size() != 7 && text.size() != 9)) return false;
    std::uint8_t* const channels[] = {&color.r, &color.g, &color.b, &color.a};
    for (std::size_t i = 1; i < text.size(); i += 2) {
        char const* const pair = text.data() + i;
        auto const [end, error] = std::from_chars(pair, pair + 2, *channels[i / 2], 16);
        if (error != std::errc{} || end != pair + 2) return false;
    }
    return true;
}

std::string expected(Range, bool)
{
    return "true or false";
}

std::string expected(Range range, int)
{
    return "a whole number from " + std::to_string(range.first) + " to " + std::to_string(range.second);
}

std::string expected(Range, RGBAColor const&)
{
    return "a colour as #rrggbb or #rrggbbaa";
}

Settings& currentSettings()
{
    static Settings settings;
    return settings;
}

} // namespace

Settings& Settings::Current()
{
    return currentSettings();
}

Settings const& Settings::Default()
{
    static Settings const settings;
    return settings;
}

std::span<Settings::Field const> Settings::Fields()
{
    return fields;
}

Settings::Field const* Settings::FindField(std::string_view name)
{
    auto const field = std::ranges::find(fields, name, &Field::name);
    return field == std::end(fields) ? nullptr : field;
}

std::string Settings::GetText(Field const& field) const
{
    return std::visit([this](auto member) { return toText(this->*member); }, field.member);
}

bool Settings::SetText(Field const& field, std::string_view text)
{
    return std::visit(
        [&](auto member) {
            std::remove_reference_t<decltype(this->*member)> value{};
            if (!fromText(text, {field.lowest, field.highest}, value)) return false;
            this->*member = value;
            return true;
        },
        field.member);
}

std::string Settings::ExpectedText(Field const& field)
{
    return std::visit(
        [&](auto member) {
            return expected(Range{field.lowest, field.highest}, Default().*member);
        },
        field.member);
}

std::string Settings::Assign(std::string_view assignment)
{
    auto const equals = assignment.find('=');
    std::string const name(assignment.substr(0, equals));
    if (equals == std::string_view::npos) return "\"" + name + "\" is not of the form Name=value";
    Field const* field = FindField(name);
    if (!field) return "there is no setting \"" + name + "\"";
    std::string const text(assignment.substr(equals + 1));
    return SetText(*field, text) ? std::string()
                                 : name + " can't be \"" + text + "\": it takes " + ExpectedText(*field);
}

} // namespace ZELVizCore
