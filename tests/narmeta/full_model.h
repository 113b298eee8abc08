#pragma once

#include <narmeta/narmeta.h>

#include <filesystem>

/// A model in which everything that the library can hold occurs at least once.
void FillFullModel(NarMetaInfra::ZELProductStructure& model);

/// A small closed body: a tetrahedron, one face per side.
NarMetaInfra::BrepBody Tetrahedron(NarMeta::Id id, float size = 1);

/// A folder that goes with the object.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    std::filesystem::path operator/(char const* name) const { return path_ / name; }
    std::wstring Wide(std::wstring const& name) const;
    /// Makes a file and gives its path.
    std::wstring Write(char const* name, std::string_view bytes) const;

private:
    std::filesystem::path path_;
};
