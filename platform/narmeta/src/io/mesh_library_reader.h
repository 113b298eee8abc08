#pragma once

namespace NarMetaInfra
{
class ReaderRegistry;

/// Adds the formats that the mesh library reads better than the kernel, or alone.
void RegisterMeshLibraryReaders(ReaderRegistry& registry);
} // namespace NarMetaInfra
