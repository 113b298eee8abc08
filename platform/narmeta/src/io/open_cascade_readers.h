#pragma once

namespace NarMetaInfra
{

class ReaderRegistry;

/// Adds the readers of all formats that Open CASCADE reads.
void RegisterOpenCascadeReaders(ReaderRegistry& registry);

} // namespace NarMetaInfra
