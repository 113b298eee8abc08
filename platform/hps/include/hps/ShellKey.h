#pragma once
#include <hps/GeometryKey.h>
#include <hps/ShellKit.h>
#include <hps/ShellRelation.h>

namespace HPS
{

// Faces that share points.
class ShellKey : public KeyOf<Type::ShellKey, GeometryKey>
{
public:
    using KeyOf::KeyOf;
    std::size_t GetPointCount() const;
    std::size_t GetFaceCount() const;
    // Copies what the database holds into the kit. False, with the kit emptied, for a stale key.
    bool Show(ShellKit& kit) const;
    // Puts the kit in place of what the database holds and empties it. False, with nothing changed, if the
    // kit could not be inserted either.
    bool Consume(ShellKit& kit);
    // How this shell lies to another, each taken as one flat outline: its points in the order of its facelist.
    // False, with empty results, if one of the keys is stale.
    bool ComputeRelation(ShellKey const& other, ShellRelationOptionsKit const& options,
                         ShellRelationResultsKit& results) const;
};

} // namespace HPS
