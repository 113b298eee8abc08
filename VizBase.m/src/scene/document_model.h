#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

class ZELDocument;

/// The document's scene root, all that the builder needs of a document. The document's class lies above this
/// folder and is not seen here: its own folder defines this function beside it.
HPS::Model documentModel(ZELDocument const& document);

} // namespace ZelVizBase
