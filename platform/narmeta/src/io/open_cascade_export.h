#pragma once

// Only for sources of this folder that see Open CASCADE.

#include <narmeta/io/ZelIO.h>

#include <filesystem>

namespace NarMetaInfra
{
/// Formats that the modelling kernel writes.
enum class ExportFormat { Step, Brep, Gltf, Obj, Stl };

struct ExportEntry {
    ExportFormat format;
    FileFormat kind;
    /// Needs exact shapes; the others take the triangles.
    bool isExact = false;
};
std::vector<ExportEntry> const& exportFormats();
/// Null for an extension that is none of theirs.
ExportEntry const* exportFormatOf(std::string_view extension);

/// Writes a model, or one reference of it as it is by itself. Gives the cause in one line if that fails,
/// empty otherwise; a file is never half new.
std::wstring writeWithKernel(std::filesystem::path const& path, ExportEntry const& entry,
                             ZELProductStructure const& model, ZELReference const* only);
} // namespace NarMetaInfra
