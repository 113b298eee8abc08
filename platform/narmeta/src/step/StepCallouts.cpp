#include "StepCallouts.h"

#include <algorithm>
#include <iterator>

namespace NarMetaInfra
{
StepCallouts::StepCallouts(StepEntities const& entities, StepProperties const& properties)
    : Entities(entities), Properties(properties)
{
    for (int const callout : Entities.ofKind("DRAUGHTING_CALLOUT"))
        for (int const content : contentsOf(callout)) Callouts.emplace(content, callout);
    for (auto const* const keyword :
         {"DRAUGHTING_MODEL_ITEM_ASSOCIATION", "DRAUGHTING_MODEL_ITEM_ASSOCIATION_WITH_PLACEHOLDER"}) {
        for (int const link : Entities.ofKind(keyword)) {
            Definition const definition{Entities.argument(link, 2).entity(),
                                        !Entities.argument(link, 0).text.empty()};
            for (int item : Entities.argument(link, 4).entities()) {
                if (auto const callout = Callouts.find(item); callout != Callouts.end())
                    item = callout->second;
                Definitions[item].push_back(definition);
            }
        }
    }
}

bool StepCallouts::isAnnotation(int item) const
{
    auto const kind = Entities.keywordOf(item);
    if (Entities.isKind(item, "DRAUGHTING_CALLOUT")) return true;
    bool const isOccurrence = kind.ends_with("_OCCURRENCE") || Entities.isKind(item, "ANNOTATION_OCCURRENCE");
    return isOccurrence && !Callouts.contains(item);
}

std::vector<int> StepCallouts::contentsOf(int item) const
{
    if (!Entities.isKind(item, "DRAUGHTING_CALLOUT")) return {};
    return Entities.argument(item, 1, "DRAUGHTING_CALLOUT", 0).entities();
}

std::wstring StepCallouts::nameOf(int item) const
{
    auto name = Entities.argument(item, 0, "DRAUGHTING_CALLOUT", 0).words();
    if (Entities.isKind(item, "REPRESENTATION_ITEM"))
        name = Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).words();
    return name;
}

std::string_view StepCallouts::pictureNameOf(int item) const
{
    auto const contents = contentsOf(item);
    auto const occurrence = contents.empty() ? item : contents.front();
    auto const drawn = Entities.argument(occurrence, 2, "STYLED_ITEM", 1).entity();
    auto const name = Entities.argument(drawn, 0, "REPRESENTATION_ITEM", 0).text;
    return name.empty() ? Entities.argument(occurrence, 0, "REPRESENTATION_ITEM", 0).text : name;
}

namespace
{
// Drawn texts may be written down with a word for their kind in front, and signs for lines and frames. They
// become one line.
std::wstring plainText(std::wstring const& marked)
{
    std::wstring text;
    std::size_t const start = marked.starts_with(L"TXT\\") ? 3 : 0;
    bool isGap = false;
    for (auto i = start; i < marked.size(); ++i) {
        static constexpr std::wstring_view Marks = L"nwxul";
        bool const isMark =
            marked[i] == L'\\' && i + 1 < marked.size() && Marks.find(marked[i + 1]) != Marks.npos;
        if (isMark) ++i;
        if (isMark || marked[i] == L' ' || marked[i] == L'\n' || marked[i] == L'\t') {
            isGap = !text.empty();
            continue;
        }
        if (isGap) text += L' ';
        isGap = false;
        text += marked[i];
    }
    return text;
}
} // namespace

// In a property of the drawing, or of what it is tied to.
std::wstring StepCallouts::textOf(int item) const
{
    auto properties = Properties.of(item);
    for (auto const& definition : definitionsOf(item))
        std::ranges::move(Properties.valuesOf(definition.entity), std::back_inserter(properties));
    for (auto const& [name, value] : properties)
        if (name.find(L"text") != name.npos || name.find(L"string") != name.npos) return plainText(value);
    return {};
}

std::vector<StepCallouts::Definition> const& StepCallouts::definitionsOf(int item) const
{
    static std::vector<Definition> const none;
    auto const found = Definitions.find(item);
    return found == Definitions.end() ? none : found->second;
}
} // namespace NarMetaInfra
