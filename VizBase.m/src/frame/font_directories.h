#pragma once

#include "hps_api.h"

namespace ZelVizBase
{

/// Directories with fonts that exist, by the environment: below each entry of LUMInstallPath the folders
/// resources/fonts/{OpenType,PostScript,TrueType}, below each of windir the folder fonts. Entries are parted
/// by ";". What was named last stands first.
HPS::UTF8Array fontDirectories();

} // namespace ZelVizBase
