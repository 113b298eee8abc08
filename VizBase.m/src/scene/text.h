#pragma once

#include <string>

namespace ZelVizBase
{

/// The model's wide text as a segment or definition name: wcstombs in the current locale. Where that locale
/// has no such character the text goes out as UTF-8, so that different texts keep different names.
std::string narrow(std::wstring const& text);

} // namespace ZelVizBase
