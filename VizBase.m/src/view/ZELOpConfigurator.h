#pragma once

#include "ZELOpConfig.h"

#include <map>

namespace ZelVizBase
{

/// Which operators a view has, and what starts each.
class ZELOpConfigurator
{
public:
    /// Left orbits and selects, middle zooms, right pans, the wheel zooms.
    ZELOpConfigurator();

    std::map<ZELOperator, ZELOpConfig> const& GetOpConfig() const { return Configs; }
    std::map<ZELOperator, ZELOpConfig>& GetOpConfig() { return Configs; }
    /// Adds what is missing.
    void Edit(ZELOperator kind, ZELOpConfig const& config) { Configs[kind] = config; }

private:
    std::map<ZELOperator, ZELOpConfig> Configs;
};

} // namespace ZelVizBase
