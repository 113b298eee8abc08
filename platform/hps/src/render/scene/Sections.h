#pragma once

namespace HPS::render
{

/// Cutting planes in force, in sets that instances name, see `Instance::material`.
struct Sections {
};

} // namespace HPS::render
