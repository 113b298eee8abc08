#include "step_header.h"

#include "StepEntities.h"

#include <algorithm>
#include <array>

namespace NarMetaInfra
{
namespace
{
constexpr std::size_t LongestHeader = 1 << 16; // bytes; real ones are a tenth of that

std::size_t endOfString(std::string_view text, std::size_t quote)
{
    for (auto end = text.find('\'', quote + 1); end != text.npos; end = text.find('\'', end + 2))
        if (end + 1 >= text.size() || text[end + 1] != '\'') return end;
    return text.size();
}

// Arguments of the statement with this keyword, each a string or a list of strings.
std::vector<std::wstring> argumentsOf(std::string_view header, std::string_view keyword)
{
    std::vector<std::wstring> arguments;
    auto at = header.find(keyword);
    if (at == header.npos || (at = header.find('(', at)) == header.npos) return arguments;
    int depth = 0;
    for (; at < header.size(); ++at) {
        char const c = header[at];
        if (c == '\'') {
            auto const end = endOfString(header, at);
            auto const word = decodeStepText(header.substr(at + 1, end - at - 1));
            if (!word.empty() && !arguments.empty())
                arguments.back() += (arguments.back().empty() ? L"" : L", ") + word;
            at = end;
        } else if (c == '(') {
            if (++depth == 1) arguments.emplace_back();
        } else if (c == ')') {
            if (--depth == 0) break;
        } else if (c == ',' && depth == 1) {
            arguments.emplace_back();
        }
    }
    return arguments;
}

struct Line {
    wchar_t const* label;
    std::string_view keyword;
    std::size_t position;
};

constexpr std::array<Line, 9> Lines = {{{L"Name", "FILE_NAME", 0},
                                        {L"Date", "FILE_NAME", 1},
                                        {L"Author", "FILE_NAME", 2},
                                        {L"Organisation", "FILE_NAME", 3},
                                        {L"Written by", "FILE_NAME", 4},
                                        {L"System", "FILE_NAME", 5},
                                        {L"Authorisation", "FILE_NAME", 6},
                                        {L"Description", "FILE_DESCRIPTION", 0},
                                        {L"Schema", "FILE_SCHEMA", 0}}};

bool isBlank(std::wstring const& text)
{
    return text.find_first_not_of(L" ,") == text.npos;
}
} // namespace

std::vector<std::pair<std::wstring, std::wstring>> stepHeaderLines(std::string_view text)
{
    auto const header = text.substr(0, std::min(text.find("ENDSEC"), LongestHeader));
    std::vector<std::pair<std::wstring, std::wstring>> lines;
    for (auto const& [label, keyword, position] : Lines) {
        auto const arguments = argumentsOf(header, keyword);
        if (position < arguments.size() && !isBlank(arguments[position]))
            lines.emplace_back(label, arguments[position]);
    }
    return lines;
}
} // namespace NarMetaInfra
