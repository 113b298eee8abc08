#include "Options.h"

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

bool setResolution(Options& options, std::string_view value)
{
    std::size_t const comma = value.find(',');
    if (comma == std::string_view::npos) return false;
    std::optional<int> const width = parseNumber<int>(value.substr(0, comma));
    std::optional<int> const height = parseNumber<int>(value.substr(comma + 1));
    auto const fits = [](std::optional<int> side) { return side && *side > 0 && *side <= LargestSide; };
    if (!fits(width) || !fits(height) || 1LL * *width * *height > LargestArea) return false;
    options.resolution = {*width, *height};
    return true;
}

bool setTimeLimit(Options& options, std::string_view value)
{
    std::optional<double> const seconds = parseNumber<double>(value);
    if (!seconds || !std::isfinite(*seconds) || *seconds < 0) return false;
    options.timeLimit = *seconds;
    return true;
}

constexpr std::array Table{
    OptionRow{"output", "FILE.png", "write a picture of the model; - writes it to standard output",
              setOutput},
    OptionRow{"resolution", "W,H", "size of the picture in pixels (1280,720)", setResolution},
    OptionRow{"tree", "", "print the product structure as an indented tree", raise<&Options::tree>},
    OptionRow{"info", "", "print counts, sizes and the time of every stage", raise<&Options::info>},
    OptionRow{"export-hsf", "", "write the scene as a stream file beside the model, FILE.hsf",
              raise<&Options::exportHsf>},
    OptionRow{"graphical", "", "read meshes instead of exact bodies where the file can give both",
              raise<&Options::graphical>},
    OptionRow{"time-limit", "SECONDS", "give up after this time (600); 0 sets no limit", setTimeLimit},
    OptionRow{"no-isolation", "",
              "work in this process instead of a guarded child: for debugging;\n"
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
    std::optional<std::string> file;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        std::string_view const word = words[i];
        if (!optionsEnded && word == "--") {
            optionsEnded = true;
        } else if (optionsEnded || !word.starts_with('-')) {
            if (file) return seeHelp("more than one file given");
            file = word;
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
            if (!row->apply(options, value))
                return seeHelp(given + " needs " + std::string(row->value) + ", not '" + std::string(value) +
                               "'");
        }
    }
    if (options.help || options.version) return options;
    if (!file || file->empty()) return seeHelp("no file given");
    if (options.output == "-" && (options.tree || options.info))
        return seeHelp("--output - leaves standard output to the picture, so no --tree or --info with it");
    options.file = *file;
    return options;
}

std::string helpText()
{
    constexpr std::size_t HelpColumn = 26;
    std::string text = "Usage: zelview [OPTION]... FILE\n"
                       "Shows a CAD model. Without an option that asks for something else, prints its tree.\n"
                       "One file at a time.\n\n";
    for (OptionRow const& row : Table) {
        std::string line = "  --" + std::string(row.name);
        if (!row.value.empty()) line += " " + std::string(row.value);
        line.resize(std::max(HelpColumn, line.size() + 2), ' ');
        for (char c : row.help) {
            line += c;
            if (c == '\n') line.append(HelpColumn, ' ');
        }
        text += line + "\n";
    }
    return text +
           "\nExit status: 0 good, 1 wrong arguments, 2 file cannot be read, 3 damaged or of no known kind,\n"
           "4 nothing in it to show, 5 cannot write, 6 no graphics, 7 cancelled or over a limit.\n";
}

} // namespace zelview
