#pragma once

namespace NarMetaInfra
{
/// Descriptors that a reading process finds open, and what it ends with.
inline constexpr int ReaderResult = 3;
inline constexpr int ReaderProgress = 4;
inline constexpr int ReaderOutOfMemory = 3;

/// The work of the program "zelread": reads the file that the arguments name, writes the packed model to
/// ReaderResult and shares done to ReaderProgress. Gives the exit status.
int serveRead(int count, char const* const* arguments);
} // namespace NarMetaInfra
