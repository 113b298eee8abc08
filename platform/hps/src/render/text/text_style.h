#pragma once
#include "TextLayout.h"
#include <hps/TextAttributeKit.h>

namespace HPS::render
{

/// How a text with these attributes is set; all of them have to be there. Extra space after each character is
/// left at none, for it depends on the size of the text.
TextStyle styleOf(TextAttributeData const& attributes);

} // namespace HPS::render
