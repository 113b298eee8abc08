// What a path's leaf inherits, for those who ask about single paths.
#include "net_attributes.h"
#include <hps/KeyPath.h>

namespace HPS
{
using namespace scene;

namespace
{

// Null if a key is stale or the path is empty.
NetStatePointer stateAt(KeyArray const& leafFirst)
{
    NetFold fold;
    NetAttributes net = fold.root();
    for (auto at = leafFirst.size(); at-- > 0;) {
        auto const& key = leafFirst[at];
        if (at + 1 < leafFirst.size() && key == leafFirst[at + 1]) continue;
        if (auto const* const segment = store().resolve<SegmentRecord>(key))
            net = fold.step(net, *segment);
        else if (auto const* const include = store().resolve<IncludeRecord>(key))
            net = fold.through(net, *include);
        else if (!store().resolve<GeometryRecord>(key))
            return nullptr;
    }
    return leafFirst.empty() ? nullptr : net.state;
}

} // namespace

bool KeyPath::ShowNetConditions(std::vector<UTF8>& conditions) const
{
    auto const state = stateAt(keys_);
    conditions.clear();
    if (state)
        for (auto const id : state->conditions) conditions.emplace_back(store().conditionName(id));
    return !conditions.empty();
}

bool KeyPath::ShowNetTextureMatrix(MatrixKit& matrix) const
{
    auto const state = stateAt(keys_);
    if (!state || !state->textureMatrix) return false;
    matrix = *state->textureMatrix;
    return true;
}

bool KeyPath::ShowNetPriority(int& priority) const
{
    if (auto const* const geometry = store().resolve<GeometryRecord>(Front());
        geometry && geometry->hasPriority) {
        priority = geometry->priority;
        return true;
    }
    auto const state = stateAt(keys_);
    if (!state || !state->priority) return false;
    priority = *state->priority;
    return true;
}

} // namespace HPS
