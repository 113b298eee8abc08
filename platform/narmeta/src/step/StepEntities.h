#pragma once

#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace NarMetaInfra
{
/// An argument of an entity as the file writes it. Views point into the text of the file.
struct StepValue {
    enum class Kind { Absent, Number, Text, Enumeration, Reference, List, Typed };

    Kind kind = Kind::Absent;
    double number = 0.0;
    int reference = 0; ///< entity number
    /// Undecoded characters, an enumeration without its dots, or the keyword of a typed value.
    std::string_view text;
    /// Of a list, or the one value inside a typed value.
    std::vector<StepValue> items;

    /// 0 if this is no reference.
    int entity() const { return kind == Kind::Reference ? reference : 0; }
    /// Looks into typed values: LENGTH_MEASURE(2.5) is 2.5.
    std::optional<double> value() const;
    /// Numbers of the entities in a list, or in a typed value around one; what is no reference is skipped.
    std::vector<int> entities() const;
    /// Decoded text; empty if this is none.
    std::wstring words() const;
};

/// Characters of a Part 21 string: doubled quotes, and the control directives for ISO 8859 and ISO 10646.
std::wstring decodeStepText(std::string_view characters);

/// The entities of the first data section of a Part 21 file, found in one pass and parsed when they are asked
/// for. Text that can't be followed gives absent values, never a fault.
class StepEntities
{
public:
    /// @p text must outlive this.
    explicit StepEntities(std::string_view text);

    std::size_t count() const { return Ranges.size(); }
    /// Entities of a keyword, in file order; those that are instances of several types at once stand under
    /// each of them.
    std::span<int const> ofKind(std::string_view keyword) const;
    bool isKind(int entity, std::string_view keyword) const;
    /// Keyword of an entity of one type; the first one of an entity of several types; empty if there is no
    /// such entity.
    std::string_view keywordOf(int entity) const;

    /// Argument at @p position of an entity of one type, where an entity of several types has it as argument
    /// @p partPosition of its type @p part.
    StepValue const& argument(int entity, std::size_t position, std::string_view part = {},
                              std::size_t partPosition = 0) const;
    /// All arguments in their order, types one after the other.
    std::vector<StepValue const*> arguments(int entity) const;

private:
    struct Part {
        std::string_view keyword;
        std::vector<StepValue> arguments;
    };
    struct Record {
        std::vector<Part> parts;
        bool isComplex = false;
    };

    Record const& record(int entity) const;
    void enterKinds(int entity, std::string_view body);

    std::unordered_map<int, std::string_view> Ranges;
    std::unordered_map<std::string_view, std::vector<int>> Kinds;
    mutable std::unordered_map<int, Record> Records;
};
} // namespace NarMetaInfra
