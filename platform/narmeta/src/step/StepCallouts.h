#pragma once

#include "StepProperties.h"

namespace NarMetaInfra
{
/// What a drawing's entities say about the annotations that they are: names, texts, and what they speak of.
class StepCallouts
{
public:
    StepCallouts(StepEntities const& entities, StepProperties const& properties);

    /// A callout, or an occurrence that no callout holds.
    bool isAnnotation(int item) const;
    /// Occurrences that a callout holds.
    std::vector<int> contentsOf(int item) const;
    std::wstring nameOf(int item) const;
    /// Name of what the annotation draws: it tells the kind, by the users' convention.
    std::string_view pictureNameOf(int item) const;
    /// Words of a note; empty if the file has them as a picture only.
    std::wstring textOf(int item) const;

    struct Definition {
        int entity = 0;
        bool isMeaning = false; ///< not just a feature that the annotation points to
    };
    std::vector<Definition> const& definitionsOf(int item) const;

private:
    StepEntities const& Entities;
    StepProperties const& Properties;
    std::unordered_map<int, int> Callouts; // by what they hold
    std::unordered_map<int, std::vector<Definition>> Definitions;
};
} // namespace NarMetaInfra
