#include "step_text.h"

#include "SourceFile.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace NarMetaInfra
{
namespace
{
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

constexpr std::size_t LongestKeyword = 80; // characters; real ones are shorter

// Who made and approved the file. Exporters leave holes there, and nothing that is shown depends on it.
bool isAdministrative(std::string_view keyword)
{
    static constexpr std::array<std::string_view, 5> Words = {"PERSON", "ORGANIZATION", "APPROVAL", "DATE_",
                                                              "SECURITY"};
    return std::ranges::any_of(Words, [&](auto word) { return keyword.find(word) != keyword.npos; });
}

class StepScanner
{
public:
    explicit StepScanner(std::string_view text) : Text(text) {}

    StepTextReport scan()
    {
        StepTextReport report;
        auto const start = Text.substr(0, 4096).find("ISO-10303-21");
        if (start == std::string_view::npos)
            return refused("the file is no STEP file: its header is missing");
        Position = start;
        while (Position < Text.size() && !AtEnd) step();

        if (HasScope) return refused("the STEP file uses the obsolete construct &SCOPE, which can't be read");
        if (!AtEnd) return refused("the STEP file is damaged: it ends before END-ISO-10303-21");
        if (Defined.empty()) return refused("the STEP file holds no data");
        report.entityCount = Defined.size();
        std::ranges::sort(Defined);
        auto const unique = std::ranges::unique(Defined);
        report.duplicateCount = unique.size();
        Defined.erase(unique.begin(), unique.end());
        std::ranges::sort(Referenced);
        Referenced.erase(std::ranges::unique(Referenced).begin(), Referenced.end());
        report.danglingCount = static_cast<std::size_t>(std::ranges::count_if(
            Referenced, [&](auto id) { return !std::ranges::binary_search(Defined, id); }));
        report.encoding = guessEncoding(Foreign);
        return report;
    }

private:
    static StepTextReport refused(char const* cause)
    {
        StepTextReport report;
        report.refusal = cause;
        return report;
    }

    void step()
    {
        char const c = Text[Position];
        if (c == '\'')
            skipString();
        else if (c == '/' && Text.substr(Position, 2) == "/*")
            skipComment();
        else if (c == '#')
            readIdentifier();
        else if (c == '&' && Text.substr(Position, 6) == "&SCOPE")
            HasScope = AtEnd = true;
        else if (c == 'E' && Text.substr(Position, 16) == "END-ISO-10303-21")
            AtEnd = true;
        else
            ++Position;
    }

    void skipString()
    {
        auto const first = Position + 1;
        auto const end = std::min(Text.find('\'', first), Text.size());
        auto const content = Text.substr(first, end - first);
        bool const foreign =
            std::ranges::any_of(content, [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
        if (foreign) Foreign.append(content).append(1, ' ');
        Position = std::min(end + 1, Text.size());
    }

    void skipComment()
    {
        auto const end = Text.find("*/", Position + 2);
        Position = end == std::string_view::npos ? Text.size() : end + 2;
    }

    void readIdentifier()
    {
        std::uint64_t id = 0;
        for (++Position; Position < Text.size() && isDigit(Text[Position]); ++Position)
            id = id * 10 + static_cast<std::uint64_t>(Text[Position] - '0');
        auto next = Position;
        while (next < Text.size() && isBlank(Text[next])) ++next;
        bool const defines = next < Text.size() && Text[next] == '=';
        if (defines) {
            Defined.push_back(id);
            IsAdministrative = isAdministrative(keywordAt(next + 1));
        } else if (!IsAdministrative) {
            Referenced.push_back(id);
        }
    }

    std::string_view keywordAt(std::size_t first) const
    {
        while (first < Text.size() && isBlank(Text[first])) ++first;
        auto const end = std::min(Text.find('(', first), Text.size());
        return Text.substr(first, std::min<std::size_t>(end - first, LongestKeyword));
    }

    std::string_view Text;
    std::size_t Position = 0;
    std::vector<std::uint64_t> Defined, Referenced;
    std::string Foreign;           // strings with bytes outside ASCII, for the guess of the encoding
    bool IsAdministrative = false; // of the entity that the scan stands in
    bool AtEnd = false;
    bool HasScope = false;
};
} // namespace

StepTextReport checkStepText(std::string_view text)
{
    return StepScanner(text).scan();
}

StepTextReport checkStepFile(std::filesystem::path const& file, std::string& text)
{
    StepTextReport unreadable;
    if (auto const cause = ReadWholeFile(file, text); !cause.empty()) {
        unreadable.refusal = utf8FromWide(cause);
        return unreadable;
    }
    return checkStepText(text);
}
} // namespace NarMetaInfra
