#pragma once

#include "ModelReader.h"

#include <functional>

namespace NarMetaInfra
{
/// What a reading process may take; 0 sets no limit.
struct ReadLimits {
    double seconds = 0;
    std::uint64_t bytes = 0; ///< of address space
};

/// Reads a file in a process of its own, which ends with the read, on cancel, over a limit, or by a fault of
/// the file, and never takes this one along. The process is the program "zelread", found beside the library
/// or the program that uses it. @p keep gets a result that is good, and it and the model in packed form.
ReadResult readInProcess(ReadRequest const& request, ReadLimits const& limits, ZELProductStructure& model,
                         std::function<void(ReadResult const&, std::string_view packed)> const& keep);
} // namespace NarMetaInfra
