#pragma once

#include <filesystem>

/// Writes a STEP assembly of @p count parts, no two alike: plates with bores, rounded edges and a boss.
bool writeManyParts(std::filesystem::path const& file, int count);
