#include "option_texts.h"

#include "Options.h"

#include <mora/Settings.h>

#include <algorithm>

namespace zelview
{
namespace
{

struct ExitRow {
    int code;
    std::string_view meaning;
};

constexpr ExitRow ExitRows[] = {{0, "good"},
                                {1, "wrong arguments"},
                                {2, "file cannot be read"},
                                {3, "damaged or of no known kind"},
                                {4, "nothing in it to show"},
                                {5, "cannot write"},
                                {6, "no graphics, or no plug-in"},
                                {7, "cancelled or over a limit"}};

constexpr std::string_view Purpose =
    "Shows a CAD model: in a window where there is a display and nothing else is asked for,\n"
    "else as a picture, as figures or as the tree of its parts.\n";

/// In the manual page a dash is a minus, not a hyphen, and a line must not begin with a dot or a quote.
std::string roff(std::string_view text)
{
    std::string escaped;
    for (char const c : text) {
        if (c == '-' || c == '\\') escaped += '\\';
        if ((c == '.' || c == '\'') && (escaped.empty() || escaped.back() == '\n')) escaped += "\\&";
        escaped += c;
    }
    return escaped;
}

} // namespace

std::string helpText()
{
    constexpr std::size_t HelpColumn = 26;
    std::string text = "Usage: zelview [OPTION]... [FILE]...\n" + std::string(Purpose) +
                       "A picture, a tree or figures are made of one file at a time.\n\n";
    for (OptionRow const& row : optionTable()) {
        std::string line = "  --" + std::string(row.name);
        if (!row.value.empty()) line += " " + std::string(row.value);
        line.resize(std::max(HelpColumn, line.size() + 2), ' ');
        for (char c : row.help) {
            line += c;
            if (c == '\n') line.append(HelpColumn, ' ');
        }
        text += line + "\n";
    }
    text += "\nSettings, for --set and --settings:\n";
    for (ZELVizCore::Settings::Field const& field : ZELVizCore::Settings::Fields()) {
        std::string line = "  " + std::string(field.name);
        line.resize(HelpColumn, ' ');
        text += line + field.description + "\n";
    }
    text += "\nExit status:\n";
    for (ExitRow const& row : ExitRows)
        text += "  " + std::to_string(row.code) + " " + std::string(row.meaning) + "\n";
    return text;
}

std::string manPage(std::string_view version)
{
    std::string page = ".TH ZELVIEW 1 \"\" \"zelview " + std::string(version) + "\" \"User commands\"\n" +
                       ".SH NAME\nzelview \\- view CAD models\n.SH SYNOPSIS\n.B zelview\n" +
                       "[\\fIOPTION\\fR]... [\\fIFILE\\fR]...\n.SH DESCRIPTION\n" + roff(Purpose) +
                       ".SH OPTIONS\n";
    for (OptionRow const& row : optionTable()) {
        page += ".TP\n\\fB" + roff("--" + std::string(row.name)) + "\\fR";
        if (!row.value.empty()) page += " \\fI" + roff(row.value) + "\\fR";
        page += "\n" + roff(row.help) + "\n";
    }
    page += ".SH SETTINGS\n";
    for (ZELVizCore::Settings::Field const& field : ZELVizCore::Settings::Fields()) {
        page += ".TP\n\\fB" + std::string(field.name) + "\\fR\n" + roff(field.description) + "; " +
                roff(ZELVizCore::Settings::ExpectedText(field)) + " (" +
                roff(ZELVizCore::Settings::Default().GetText(field)) + ")\n";
    }
    page += ".SH EXIT STATUS\n";
    for (ExitRow const& row : ExitRows)
        page += ".TP\n\\fB" + std::to_string(row.code) + "\\fR\n" + roff(row.meaning) + "\n";
    return page + ".SH FILES\n.TP\n\\fI~/.config/zelview/settings.ini\\fR\nthe user's settings\n";
}

std::string bashCompletion()
{
    std::string options;
    std::string cases;
    for (OptionRow const& row : optionTable()) {
        std::string const option = "--" + std::string(row.name);
        options += (options.empty() ? "" : " ") + option;
        std::string const head = "        " + option + ") ";
        switch (row.kind) {
        case ValueKind::None:
            if (!row.value.empty()) cases += head + "return ;;\n";
            break;
        case ValueKind::File:
            cases += head + "COMPREPLY=($(compgen -f -- \"$word\")); return ;;\n";
            break;
        case ValueKind::Word:
            cases +=
                head + "COMPREPLY=($(compgen -W '" + std::string(row.words) + "' -- \"$word\")); return ;;\n";
            break;
        case ValueKind::Setting: {
            std::string names;
            for (ZELVizCore::Settings::Field const& field : ZELVizCore::Settings::Fields())
                names += (names.empty() ? "" : " ") + std::string(field.name) + "=";
            cases += head + "compopt -o nospace; COMPREPLY=($(compgen -W '" + names +
                     "' -- \"$word\")); return ;;\n";
            break;
        }
        }
    }
    return "# Completion for zelview.\n_zelview()\n{\n    local word=${COMP_WORDS[COMP_CWORD]}\n"
           "    COMPREPLY=()\n    case ${COMP_WORDS[COMP_CWORD - 1]} in\n" +
           cases + "    esac\n    if [[ $word == -* ]]; then\n        COMPREPLY=($(compgen -W '" + options +
           "' -- \"$word\"))\n    else\n        compopt -o filenames\n"
           "        COMPREPLY=($(compgen -f -- \"$word\"))\n    fi\n}\ncomplete -F _zelview zelview\n";
}

} // namespace zelview
