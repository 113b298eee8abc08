#pragma once

#include "ViewChoice.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zelview
{

/// Width and height in device pixels.
struct PixelSize {
    int width;
    int height;
};

/// What the command line asks for.
struct Options {
    std::vector<std::string> files;
    std::optional<std::string> output; ///< picture file; "-" is standard output
    PixelSize resolution{1280, 720};
    bool tree = false;
    bool info = false;
    bool exportHsf = false;
    bool graphical = false;
    ViewChoice view;
    std::optional<std::string> settingsFile;
    std::vector<std::string> settings; ///< "Name=value", in the order in which they take effect
    bool withoutIsolation = false;
    std::optional<double> timeLimit; ///< seconds; 0 sets none; absent: as the settings say
    bool version = false;
    bool help = false;

    /// Something is to be written or printed, so that no window is wanted.
    bool wantsResult() const { return output || tree || info || exportHsf; }
};

/// What may stand in an option's value, for completion.
enum class ValueKind { None, File, Word, Setting };

/// One option: parsing, help, man page and completion are all made from this row.
struct OptionRow {
    std::string_view name;                           ///< without the leading dashes
    std::string_view value;                          ///< placeholder of its value; empty: it takes none
    std::string_view help;                           ///< may span lines
    bool (*apply)(Options&, std::string_view value); ///< false: the value is not understood
    ValueKind kind = ValueKind::None;
    std::string_view words = {}; ///< for ValueKind::Word, with blanks between
};

std::span<OptionRow const> optionTable();

/// Reads the words behind the program's name. A string is the cause of a refusal, one line.
std::variant<Options, std::string> parseOptions(std::span<char const* const> words);

} // namespace zelview
