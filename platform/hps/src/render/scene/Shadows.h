#pragma once

namespace HPS::render
{

/// Which shadows are cast, and how.
struct Shadows {
};

} // namespace HPS::render
