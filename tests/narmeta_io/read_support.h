#pragma once

#include "ModelReader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>

namespace ReadSupport
{
using namespace NarMetaInfra;

/// A read file: how it went and the model.
struct ReadModel {
    ReadResult result;
    ZELProductStructure model;
};

/// Reads with the reader that recognises the contents; no reader counts as damaged.
std::unique_ptr<ReadModel> read(std::filesystem::path const& file, bool graphical = false,
                                Progress progress = nullptr);

/// Folder of real model files; may be absent.
std::filesystem::path modelFolder();

/// A folder of the running test's own that goes with this object.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    std::filesystem::path write(std::string const& name, std::string_view bytes) const;
    std::filesystem::path const& path() const { return Path; }

private:
    std::filesystem::path Path;
};

/// A cache folder of the test's own for the time of its life.
class CacheFolder
{
public:
    CacheFolder();
    ~CacheFolder();
    std::vector<std::filesystem::path> entries() const;

private:
    TemporaryFolder Folder;
};

std::string bytesOf(std::filesystem::path const& file);

/// Everything of a model as text.
std::string textOf(ZELProductStructure const& model);

bool hasStage(ZelIO const& io, std::wstring const& name);

/// The files that are read in several ways, below modelFolder(), and what a test of one of them is called.
extern std::vector<char const*> const ComparedFiles;
std::string fileTestName(testing::TestParamInfo<char const*> const& test);

/// Volume inside the triangles of a closed body; negative if they are turned inside out.
double volumeOf(BrepBody const& body);

/// All ids of references, instances, bodies, faces, edges and vertices in model order, and all PIDs.
struct Identity {
    std::vector<Id> ids;
    std::vector<std::wstring> pids;
    bool operator==(Identity const&) const = default;
};
Identity identityOf(ZELProductStructure const& model);

double determinantOf(Matrix const& matrix);

/// Meshes of all references.
std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshesOf(ZELProductStructure const& model);
} // namespace ReadSupport

#define REQUIRE_MODEL_FILE(file)                                                                             \
    if (!std::filesystem::exists(file)) GTEST_SKIP() << "no model file " << file
