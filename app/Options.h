#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace zelview
{

/// Width and height in device pixels.
struct PixelSize {
    int width;
    int height;
};

/// What the command line asks for.
struct Options {
    std::string file;
    std::optional<std::string> output; ///< picture file; "-" is standard output
    PixelSize resolution{1280, 720};
    bool tree = false;
    bool info = false;
    bool exportHsf = false;
    bool graphical = false;
    bool withoutIsolation = false;
    double timeLimit = 600; ///< seconds; 0 sets none
    bool version = false;
    bool help = false;
};

/// One option: parsing and help are both made from this row.
struct OptionRow {
    std::string_view name;                           ///< without the leading dashes
    std::string_view value;                          ///< placeholder of its value; empty: it takes none
    std::string_view help;                           ///< may span lines
    bool (*apply)(Options&, std::string_view value); ///< false: the value is not understood
};

std::span<OptionRow const> optionTable();

/// Reads the words behind the program's name. A string is the cause of a refusal, one line.
std::variant<Options, std::string> parseOptions(std::span<char const* const> words);

std::string helpText();

} // namespace zelview
