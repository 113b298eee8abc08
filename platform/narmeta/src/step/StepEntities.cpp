#include "StepEntities.h"

#include <algorithm>
#include <charconv>
#include <cstdint>

namespace NarMetaInfra
{
namespace
{
constexpr int DeepestList = 32;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}
bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}
bool isWordCharacter(char c)
{
    return isDigit(c) || c == '_' || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Reads values one behind the other from the body of an entity.
class StepParser
{
public:
    explicit StepParser(std::string_view text) : Text(text) {}

    char peek()
    {
        skipBlanks();
        return Position < Text.size() ? Text[Position] : '\0';
    }
    bool take(char c)
    {
        if (peek() != c) return false;
        ++Position;
        return true;
    }
    std::string_view word()
    {
        skipBlanks();
        auto const first = Position;
        while (Position < Text.size() && isWordCharacter(Text[Position])) ++Position;
        return Text.substr(first, Position - first);
    }

    /// What has not been read yet.
    std::string_view rest() const { return Text.substr(Position); }

    /// Arguments in round brackets; what stands up to a fault in the text.
    std::vector<StepValue> list(int depth = 0)
    {
        std::vector<StepValue> values;
        if (!take('(')) return values;
        while (peek() != '\0' && !take(')')) {
            if (take(',')) continue;
            values.emplace_back();
            if (depth >= DeepestList || !read(values.back(), depth + 1)) {
                Position = Text.size();
                break;
            }
        }
        return values;
    }

private:
    void skipBlanks()
    {
        while (Position < Text.size()) {
            if (isBlank(Text[Position])) {
                ++Position;
            } else if (Text.substr(Position, 2) == "/*") {
                auto const end = Text.find("*/", Position + 2);
                Position = end == std::string_view::npos ? Text.size() : end + 2;
            } else {
                break;
            }
        }
    }

    bool read(StepValue& value, int depth)
    {
        switch (char const c = peek(); c) {
        case '$':
        case '*':
            ++Position;
            return true;
        case '#':
            ++Position;
            value.kind = StepValue::Kind::Reference;
            return readNumber(value.reference);
        case '\'':
            return readText(value);
        case '.':
            if (Position + 1 < Text.size() && isDigit(Text[Position + 1])) break;
            ++Position;
            value.kind = StepValue::Kind::Enumeration;
            value.text = word();
            return take('.');
        case '(':
            value.kind = StepValue::Kind::List;
            value.items = list(depth);
            return true;
        default:
            break;
        }
        if (isWordCharacter(Text[Position]) && !isDigit(Text[Position])) {
            value.kind = StepValue::Kind::Typed;
            value.text = word();
            if (peek() == '(') value.items = list(depth);
            return true;
        }
        value.kind = StepValue::Kind::Number;
        if (Text[Position] == '+') ++Position;
        return readNumber(value.number);
    }

    template <class Number> bool readNumber(Number& number)
    {
        auto const* const first = Text.data() + Position;
        auto const [end, error] = std::from_chars(first, Text.data() + Text.size(), number);
        if (error != std::errc()) return false;
        Position += static_cast<std::size_t>(end - first);
        return true;
    }

    bool readText(StepValue& value)
    {
        auto const first = ++Position;
        for (; Position < Text.size(); ++Position) {
            if (Text[Position] != '\'') continue;
            if (Position + 1 >= Text.size() || Text[Position + 1] != '\'') break;
            ++Position;
        }
        if (Position >= Text.size()) return false;
        value.kind = StepValue::Kind::Text;
        value.text = Text.substr(first, Position - first);
        ++Position;
        return true;
    }

    std::string_view Text;
    std::size_t Position = 0;
};

// End of the statement that starts at `first`: its semicolon outside strings and comments.
std::size_t endOfStatement(std::string_view text, std::size_t first)
{
    for (auto i = first; i < text.size(); ++i) {
        if (text[i] == ';') return i;
        if (text[i] == '\'') {
            i = std::min(text.find('\'', i + 1), text.size());
        } else if (text[i] == '/' && text.substr(i, 2) == "/*") {
            auto const end = text.find("*/", i + 2);
            i = end == std::string_view::npos ? text.size() : end + 1;
        }
    }
    return text.size();
}
} // namespace

std::optional<double> StepValue::value() const
{
    if (kind == Kind::Number) return number;
    if (kind == Kind::Typed && items.size() == 1) return items.front().value();
    return std::nullopt;
}

std::vector<int> StepValue::entities() const
{
    if (kind == Kind::Typed && items.size() == 1) return items.front().entities();
    std::vector<int> numbers;
    if (kind == Kind::Reference) numbers.push_back(reference);
    for (auto const& item : items)
        if (item.entity() != 0) numbers.push_back(item.entity());
    return numbers;
}

std::wstring StepValue::words() const
{
    if (kind == Kind::Typed && items.size() == 1) return items.front().words();
    return kind == Kind::Text ? decodeStepText(text) : std::wstring();
}

StepEntities::StepEntities(std::string_view text)
{
    bool isData = false;
    for (std::size_t position = 0; position < text.size(); ++position) {
        auto const start = position;
        position = endOfStatement(text, start);
        StepParser statement(text.substr(start, position - start));
        if (!isData || !statement.take('#')) {
            auto const word = statement.word();
            if (isData && word == "ENDSEC") break;
            isData |= word == "DATA";
            continue;
        }
        int entity = 0;
        auto const digits = statement.word();
        auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), entity);
        if (error != std::errc() || !statement.take('=')) continue;
        auto const body = statement.rest();
        if (Ranges.emplace(entity, body).second) enterKinds(entity, body);
    }
}

void StepEntities::enterKinds(int entity, std::string_view body)
{
    StepParser parser(body);
    if (parser.peek() != '(') {
        Kinds[parser.word()].push_back(entity);
        return;
    }
    for (auto const& part : record(entity).parts) Kinds[part.keyword].push_back(entity);
}

std::span<int const> StepEntities::ofKind(std::string_view keyword) const
{
    auto const found = Kinds.find(keyword);
    return found == Kinds.end() ? std::span<int const>() : std::span<int const>(found->second);
}

bool StepEntities::isKind(int entity, std::string_view keyword) const
{
    auto const& parts = record(entity).parts;
    return std::ranges::any_of(parts, [&](Part const& part) { return part.keyword == keyword; });
}

std::string_view StepEntities::keywordOf(int entity) const
{
    auto const& parts = record(entity).parts;
    return parts.empty() ? std::string_view() : parts.front().keyword;
}

StepEntities::Record const& StepEntities::record(int entity) const
{
    if (auto const known = Records.find(entity); known != Records.end()) return known->second;
    Record made;
    if (auto const range = Ranges.find(entity); range != Ranges.end()) {
        StepParser parser(range->second);
        made.isComplex = parser.take('(');
        do {
            auto const keyword = parser.word();
            if (keyword.empty()) break;
            made.parts.push_back({keyword, parser.list()});
        } while (made.isComplex);
    }
    return Records.emplace(entity, std::move(made)).first->second;
}

StepValue const& StepEntities::argument(int entity, std::size_t position, std::string_view part,
                                        std::size_t partPosition) const
{
    static StepValue const absent;
    auto const& found = record(entity);
    if (!found.isComplex) {
        if (found.parts.empty() || position >= found.parts.front().arguments.size()) return absent;
        return found.parts.front().arguments[position];
    }
    for (auto const& candidate : found.parts)
        if (candidate.keyword == part)
            return partPosition < candidate.arguments.size() ? candidate.arguments[partPosition] : absent;
    return absent;
}

std::vector<StepValue const*> StepEntities::arguments(int entity) const
{
    std::vector<StepValue const*> all;
    for (auto const& part : record(entity).parts)
        for (auto const& value : part.arguments) all.push_back(&value);
    return all;
}
} // namespace NarMetaInfra
