#pragma once

namespace HPS::render
{

/// How what is seen through is put together.
struct Transparency {
};

} // namespace HPS::render
