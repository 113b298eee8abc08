#include "Options.h"

#include <mora/Settings.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <filesystem>

namespace zelview
{
namespace
{

// The largest side that every OpenGL 4.5 implementation renders to, and an area whose buffers stay below 2
// GB.
constexpr int LargestSide = 16384;
constexpr long long LargestArea = 1LL << 26;

template <bool Options::*Flag> bool raise(Options& options, std::string_view)
{
    options.*Flag = true;
    return true;
}

template <typename Number> std::optional<Number> parseNumber(std::string_view text)
{
    Number number{};
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

bool setOutput(Options& options, std::string_view value)
{
    std::string extension = std::filesystem::path(value).extension();
    std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::tolower(c); });
    options.output = std::string(value);
    return !value.empty() && (extension.empty() || extension == ".png");
}

/// The number at the front of `rest`, which then begins behind the comma that follows.
template <typename Number> std::optional<Number> takeNumber(std::string_view& rest)
{
    std::size_t const comma = rest.find(',');
    std::optional<Number> const number = parseNumber<Number>(rest.substr(0, comma));
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    return number;
}

bool setResolution(Options& options, std::string_view value)
{
    if (std::ranges::count(value, ',') != 1) return false;
    std::optional<int> const width = takeNumber<int>(value);
    std::optional<int> const height = takeNumber<int>(value);
    auto const fits = [](std::optional<int> side) { return side && *side > 0 && *side <= LargestSide; };
    if (!fits(width) || !fits(height) || 1LL * *width * *height > LargestArea) return false;
    options.resolution = {*width, *height};
    return true;
}

template <std::optional<Triple> ViewChoice::*Member> bool setTriple(Options& options, std::string_view value)
{
    if (std::ranges::count(value, ',') != 2) return false;
    Triple triple{};
    for (float& coordinate : triple) {
        std::optional<float> const number = takeNumber<float>(value);
        if (!number || !std::isfinite(*number)) return false;
        coordinate = *number;
    }
    options.view.*Member = triple;
    return true;
}

/// Takes one of the names of an enumeration.
template <auto const& Names, auto Member> bool setNamed(Options& options, std::string_view value)
{
    auto const row = std::ranges::find(Names, value, [](auto const& named) { return named.name; });
    if (row == std::end(Names)) return false;
    options.view.*Member = row->value;
    return true;
}

constexpr Named<bool> OnOff[] = {{true, "on"}, {false, "off"}};

bool setFieldOfView(Options& options, std::string_view value)
{
    std::optional<float> const degrees = parseNumber<float>(value);
    if (!degrees || !(*degrees >= 1 && *degrees <= 170)) return false;
    options.view.fieldOfView = degrees;
    return true;
}

template <bool ViewChoice::*Flag> bool raiseInView(Options& options, std::string_view)
{
    options.view.*Flag = true;
    return true;
}

bool addSetting(Options& options, std::string_view value)
{
    options.settings.emplace_back(value);
    return ZELVizCore::Settings().Assign(value).empty();
}

/// One colour for the whole background, or those of its upper and lower end.
bool setBackground(Options& options, std::string_view value)
{
    std::size_t const comma = value.find(',');
    std::string const top(value.substr(0, comma));
    std::string const bottom(comma == std::string_view::npos ? top : value.substr(comma + 1));
    return addSetting(options, "BackgroundTopColor=" + top) &&
           addSetting(options, "BackgroundBottomColor=" + bottom);
}

bool setSettingsFile(Options& options, std::string_view value)
{
    options.settingsFile = std::string(value);
    return !value.empty();
}

bool setTimeLimit(Options& options, std::string_view value)
{
    std::optional<double> const seconds = parseNumber<double>(value);
    if (!seconds || !std::isfinite(*seconds) || *seconds < 0) return false;
    options.timeLimit = *seconds;
    return true;
}

constexpr std::array Table{
    OptionRow{"output", "FILE.png", "write a picture of the model; - writes it to standard output", setOutput,
              ValueKind::File},
    OptionRow{"resolution", "W,H", "size of the picture in pixels (1280,720)", setResolution},
    OptionRow{"tree", "", "print the product structure as an indented tree", raise<&Options::tree>},
    OptionRow{"info", "", "print counts, sizes and the time of every stage", raise<&Options::info>},
    OptionRow{"export-hsf", "", "write the scene as a stream file beside the model, FILE.hsf",
              raise<&Options::exportHsf>},
    OptionRow{"graphical", "", "read meshes instead of exact bodies where the file can give both",
              raise<&Options::graphical>},
    OptionRow{"view", "NAME", "look from: isometric, front, top, right, back, bottom or left",
              setNamed<StandardViewNames, &ViewChoice::view>, ValueKind::Word,
              "isometric front top right back bottom left"},
    OptionRow{"camera-position", "X,Y,Z", "where the eye stands, in the model's unit",
              setTriple<&ViewChoice::position>},
    OptionRow{"camera-target", "X,Y,Z", "what it looks at (the middle of the model)",
              setTriple<&ViewChoice::target>},
    OptionRow{"camera-up", "X,Y,Z", "what is up in the picture", setTriple<&ViewChoice::up>},
    OptionRow{"fov", "DEGREES", "angle of view over the height of the picture, 1 to 170 (45)",
              setFieldOfView},
    OptionRow{"ortho", "", "parallel projection instead of perspective",
              raiseInView<&ViewChoice::orthographic>},
    OptionRow{"fit", "",
              "move the camera along its line of sight until all is seen,\n"
              "as it is done without --camera-position",
              raiseInView<&ViewChoice::fit>},
    OptionRow{"mode", "NAME", "shading: gouraud, flat, smooth, wires or hidden-line",
              setNamed<ShadingModeNames, &ViewChoice::mode>, ValueKind::Word,
              "gouraud flat smooth wires hidden-line"},
    OptionRow{"edges", "on|off", "show the edges of bodies (on)", setNamed<OnOff, &ViewChoice::edges>,
              ValueKind::Word, "on off"},
    OptionRow{"background", "TOP[,BOTTOM]", "colours of the background, each as #rrggbb", setBackground},
    OptionRow{"settings", "FILE", "take the settings of this file instead of the user's own", setSettingsFile,
              ValueKind::File},
    OptionRow{"set", "NAME=VALUE", "change one setting; may be given again", addSetting, ValueKind::Setting},
    OptionRow{"time-limit", "SECONDS", "give up after this time instead of the setting's; 0 sets no limit",
              setTimeLimit},
    OptionRow{"no-isolation", "",
              "read in this process instead of a guarded child: for debugging;\n"
              "no time limit then, and a fault in a file ends the program",
              raise<&Options::withoutIsolation>},
    OptionRow{"version", "", "print the version", raise<&Options::version>},
    OptionRow{"help", "", "print this text", raise<&Options::help>},
};

OptionRow const* findRow(std::string_view name)
{
    auto const row = std::ranges::find(Table, name, &OptionRow::name);
    return row == Table.end() ? nullptr : &*row;
}

std::string seeHelp(std::string cause)
{
    return cause + "; see zelview --help";
}

} // namespace

std::span<OptionRow const> optionTable()
{
    return Table;
}

std::variant<Options, std::string> parseOptions(std::span<char const* const> words)
{
    Options options;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::string_view const word = words[i];
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (optionsEnded || !word.starts_with('-')) {
            if (word.empty()) return seeHelp("no file given");
            options.files.emplace_back(word);
        } else {
            std::size_t const equals = word.find('=');
            std::string const given(word.substr(0, equals));
            OptionRow const* row = given.starts_with("--") ? findRow(given.substr(2)) : nullptr;
            if (!row) return seeHelp("unknown option " + given);
            std::string_view value;
            if (equals != std::string_view::npos) {
                if (row->value.empty()) return seeHelp(given + " takes no value");
                value = word.substr(equals + 1);
            } else if (!row->value.empty()) {
                if (++i == words.size()) return seeHelp(given + " needs a value, " + std::string(row->value));
                value = words[i];
            }
            if (row->apply(options, value)) continue;
            if (row->kind == ValueKind::Setting)
                return seeHelp(given + ": " + ZELVizCore::Settings().Assign(value));
            return seeHelp(given + " needs " + std::string(row->value) + ", not '" + std::string(value) +
                           "'");
        }
    }
    if (options.help || options.version) return options;
    if (options.output == "-" && (options.tree || options.info))
        return seeHelp("--output - leaves standard output to the picture, so no --tree or --info with it");
    return options;
}

} // namespace zelview
