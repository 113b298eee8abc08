#pragma once

#include "material_details.h"

class QJsonObject;

namespace NarMetaInfra
{
/// Materials without a name are left out, and of two with one name the first holds.
MaterialDetailMap readGltfMaterials(QJsonObject const& document);
} // namespace NarMetaInfra
