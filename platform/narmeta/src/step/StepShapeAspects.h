#pragma once

#include "StepProducts.h"

namespace NarMetaInfra
{
/// Geometry that an annotation speaks of, in the product that has it.
struct StepShapeUse {
    int shape = 0;
    int product = 0;           ///< 0 if the file does not say
    StepProducts::Way through; ///< uses through which it is meant, the outermost first; empty for all
    auto operator<=>(StepShapeUse const&) const = default;
};

/// The features of a part that annotations speak of, and the faces, edges and points that they consist of.
class StepShapeAspects
{
public:
    StepShapeAspects(StepEntities const& entities, StepProducts const& products);

    /// The geometry of a feature and of those that it is made of, each once.
    std::vector<StepShapeUse> shapesOf(int aspect) const;
    /// Features and targets that establish a datum.
    std::vector<int> featuresOf(int datum) const;
    /// The datum that a feature or target establishes; 0 if there is none.
    int datumOf(int feature) const;

private:
    using Relation = std::unordered_map<int, std::vector<int>>;

    void addUsage(int usage);
    void addPlaced(int item, StepShapeUse use, int aspect);
    StepProducts::Way usesOf(int aspect) const;

    StepEntities const& Entities;
    StepProducts const& Products;
    std::unordered_map<int, std::vector<StepShapeUse>> Shapes; // by feature
    Relation Parts;                                            // features by the one that they make up
    Relation Features;                                         // features by datum
    std::unordered_map<int, int> Datums;
};
} // namespace NarMetaInfra
