#pragma once

#include <narmeta/infra/ZELReference.h>

namespace NarMetaInfra
{
/// Makes a graphical reference: its bodies, but for hidden ones, become visualisation nodes under the group
/// of its PID, and it keeps no body. A reference with nothing to show stays without visualisation data.
void makeGraphical(ZELReference& reference, std::vector<BrepBody> bodies);
} // namespace NarMetaInfra
