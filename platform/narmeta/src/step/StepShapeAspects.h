#pragma once

#include "StepEntities.h"

namespace NarMetaInfra
{
/// The features of a part that annotations speak of, and the faces, edges and points that they consist of.
class StepShapeAspects
{
public:
    explicit StepShapeAspects(StepEntities const& entities);

    /// Entity numbers of the geometry of a feature and of those that it is made of, each once.
    std::vector<int> shapesOf(int aspect) const;
    /// Features and targets that establish a datum.
    std::vector<int> featuresOf(int datum) const;
    /// The datum that a feature or target establishes; 0 if there is none.
    int datumOf(int feature) const;
    /// Product definition that a feature, property or characteristic belongs to; 0 if unknown.
    int productOf(int entity) const;

private:
    using Relation = std::unordered_map<int, std::vector<int>>;

    StepEntities const& Entities;
    Relation Shapes;   // geometry by feature
    Relation Parts;    // features by the one that they make up
    Relation Features; // features by datum
    std::unordered_map<int, int> Datums;
};
} // namespace NarMetaInfra
