#pragma once

namespace HPS::render
{

/// What is done to the whole picture after it is drawn.
struct Effects {
};

} // namespace HPS::render
