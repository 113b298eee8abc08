#pragma once
#include <hps/GeometryKey.h>
#include <hps/ShellKit.h>
#include <hps/ShellRelation.h>

namespace HPS
{

// Faces that share points.
class ShellKey : public GeometryKeyOf<HPS::Type::ShellKey, ShellKit>
{
public:
    using GeometryKeyOf::GeometryKeyOf;
    std::size_t GetPointCount() const;
    std::size_t GetFaceCount() const;
    // How this shell lies to another, each taken as one flat outline: its points in the order of its
    // facelist. False, with empty results, if one of the keys is stale.
    bool ComputeRelation(ShellKey const& other, ShellRelationOptionsKit const& options,
                         ShellRelationResultsKit& results) const;
};

} // namespace HPS
