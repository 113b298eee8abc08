#pragma once

#include <narmeta/infra/ZELProductStructure.h>

namespace samples
{

/// A motor with a planetary gear on a base plate: three levels, shared parts and assemblies.
void BuildMachine(NarMetaInfra::ZELProductStructure& model);

} // namespace samples
