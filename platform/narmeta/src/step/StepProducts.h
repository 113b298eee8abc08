#pragma once

#include "StepEntities.h"

#include <map>
#include <set>

namespace NarMetaInfra
{
/// The products of a file, the representations of their shapes, and their uses in each other. Products are
/// named by their product definitions, uses by their occurrences.
class StepProducts
{
public:
    using Way = std::vector<int>;

    explicit StepProducts(StepEntities const& entities);

    /// Product that a usage, feature, property or characteristic belongs to; of a use, the assembly in which
    /// it stands. 0 if unknown.
    int ownerOf(int entity) const;
    /// Product in whose coordinates a representation stands: that of its own, or that of one to which it is
    /// related without a placement. 0 if unknown.
    int ofRepresentation(int representation) const;
    /// All representations of a product.
    std::set<int> representationsOf(int product) const;

    /// Uses that a usage stands for, the outermost first: itself, or those of a chain. Empty for anything
    /// else.
    Way usesOf(int usage) const;
    /// The use that a relationship of two representations places, or for which a representation stands; 0 if
    /// none.
    int useOf(int relationship) const;
    std::vector<int> const& usesOfProduct(int product) const;
    bool isAssembly(int product) const { return Assemblies.contains(product); }
    bool isRepresentation(int entity) const;
    /// Product that is used; 0 if @p use is none.
    int productOf(int use) const;
    /// All ways down from one product to another that lead through @p through; the empty way if they are the
    /// same.
    std::vector<Way> waysDown(int from, int to, Way const& through) const;

private:
    struct Use {
        int whole = 0, part = 0;
    };
    void readUses();
    void readRepresentations();
    struct Search;
    void addWays(Search& search, int product) const;

    StepEntities const& Entities;
    std::map<int, Use> Uses;
    std::map<int, std::vector<int>> UsesOf; // by what is used
    std::set<int> Assemblies;
    std::map<int, int> Placed;          // use by relationship or representation
    std::map<int, int> Representations; // product by representation
};
} // namespace NarMetaInfra
