#include "mesh_library_reader.h"

#include "ReaderRegistry.h"
#include "SourceFile.h"
#include "mesh_library_check.h"
#include "mesh_library_model.h"
#include "open_cascade_guard.h"
#include "packed_model.h"
#include "stage_clock.h"
#include "text_encoding.h"

#include <algorithm>
#include <array>

#include <assimp/Importer.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

namespace NarMetaInfra
{
namespace
{
// The library hands COLLADA over in metres with y upwards, whatever the file's own unit and direction.
constexpr Matrix FromMetresYUp = {1000, 0, 0, 0, 0, 0, 1000, 0, 0, -1000, 0, 0, 0, 0, 0, 1};

bool isPly(std::string_view head)
{
    return head.starts_with("ply\n") || head.starts_with("ply\r");
}

// Letters in front say what stands at each point beside its place.
bool isOff(std::string_view head)
{
    auto const word = head.substr(0, head.find_first_of(" \t\r\n"));
    static constexpr std::array<std::string_view, 4> Words = {"OFF", "COFF", "NOFF", "CNOFF"};
    return std::ranges::find(Words, word) != Words.end();
}

bool isCollada(std::string_view head)
{
    return head.find("<COLLADA") != head.npos;
}

// A packed folder, whose first entries are named in the head.
bool is3mf(std::string_view head)
{
    return head.starts_with("PK\x03\x04") &&
           (head.find("3D/") != head.npos || head.find("[Content_Types].xml") != head.npos);
}

// A cloud of points: the library's check of its own results takes a mesh without faces for a fault.
bool isCloud(std::string_view bytes)
{
    auto const header = bytes.substr(0, std::min(bytes.find("end_header"), bytes.size()));
    auto const faces = header.find("element face");
    return isPly(bytes) && (faces == header.npos || header.substr(faces).starts_with("element face 0"));
}

struct MeshFormat {
    wchar_t const* name;
    char const* extension;
    bool (*isOwn)(std::string_view head);
    Confidence confidence;
    Matrix placement;
};

constexpr std::array<MeshFormat, 4> Formats = {{
    {L"PLY", "ply", isPly, Confidence::Certain, IdentityMatrix},
    {L"OFF", "off", isOff, Confidence::Likely, IdentityMatrix},
    {L"COLLADA", "dae", isCollada, Confidence::Certain, FromMetresYUp},
    {L"3MF", "3mf", is3mf, Confidence::Likely, IdentityMatrix},
}};

// The library makes up its names of an object's number: one for the meshes, one for the nodes.
std::map<std::wstring, std::wstring> libraryNames(PackedModelWords const& words)
{
    std::map<std::wstring, std::wstring> names;
    for (auto const& [number, name] : words.names) {
        auto const wide = wideFromBytes(number);
        names[wide] = names[L"Object_" + wide] = name;
    }
    return names;
}

class ProgressOfRead : public Assimp::ProgressHandler
{
public:
    explicit ProgressOfRead(ReadRequest const& request) : Request(request) {}
    bool Update(float done) override
    {
        // The translation has the rest.
        if (done >= 0.0f) Cancelled |= Request.Report(0.9 * std::min(static_cast<double>(done), 1.0));
        return !Cancelled;
    }
    bool isCancelled() const { return Cancelled; }

private:
    ReadRequest const& Request;
    bool Cancelled = false;
};

class MeshLibraryReader : public ModelReader
{
public:
    explicit MeshLibraryReader(MeshFormat const& format) : Own(format) {}

    FileFormat Format() const override
    {
        std::string_view const extension = Own.extension;
        return {Own.name, {std::wstring(extension.begin(), extension.end())}};
    }
    Confidence Recognise(std::string_view head, std::string_view) const override
    {
        return Own.isOwn(head) ? Own.confidence : Confidence::No;
    }
    bool IsFragile() const override { return true; }
    ReadResult Read(ReadRequest const& request, ZELProductStructure& model) const override;

private:
    ReadResult readInSession(ReadRequest const& request, ZELProductStructure& model) const;
    ReadResult damaged(std::string const& cause) const
    {
        auto const line = cause.substr(0, cause.find('\n'));
        return ReadResult::Failure(IoOutcome::Damaged,
                                   L"the " + std::wstring(Own.name) + L" file is damaged: it can't be read" +
                                       (line.empty() ? L"" : L" (" + wideFromBytes(line) + L")"));
    }

    MeshFormat const& Own;
};

ReadResult MeshLibraryReader::Read(ReadRequest const& request, ZELProductStructure& model) const
{
    KernelSession const session; // its guard against faults serves this library too
    ReadResult result;
    auto const failure = guarded([&] { result = readInSession(request, model); });
    return failure ? damaged(*failure) : std::move(result);
}

ReadResult MeshLibraryReader::readInSession(ReadRequest const& request, ZELProductStructure& model) const
{
    double parse = 0.0, convert = 0.0;
    auto const stopped = ReadResult::Failure(IoOutcome::Cancelled, L"reading was stopped");
    if (request.Report(0.0)) return stopped;
    Assimp::Importer importer;
    auto* const progress = new ProgressOfRead(request); // the importer owns it
    importer.SetProgressHandler(progress);
    aiScene const* scene = nullptr;
    PackedModelWords words;
    {
        StageClock const clock(parse);
        std::string bytes;
        if (auto refusal = ReadWholeFile(request.path, bytes); !refusal.empty())
            return ReadResult::Failure(IoOutcome::CannotRead, refusal);
        if (isPly(bytes) && !isPlyComplete(bytes)) return damaged("it ends before what its header promises");
        if (is3mf(bytes)) words = packedModelWords(bytes);
        // From memory, so that the library opens no other file that this one names.
        unsigned const steps = aiProcess_Triangulate | aiProcess_JoinIdenticalVertices |
                               aiProcess_SortByPType | aiProcess_FindInstances |
                               aiProcess_ValidateDataStructure;
        scene = importer.ReadFileFromMemory(bytes.data(), bytes.size(), isCloud(bytes) ? 0 : steps,
                                            Own.extension);
    }
    if (progress->isCancelled()) return stopped;
    if (!scene) return damaged(importer.GetErrorString());

    ReadResult result;
    result.graphical = true;
    auto placement = Own.placement;
    for (std::size_t i = 0; i < 12; ++i) placement[i] *= static_cast<float>(words.millimetres);
    SceneTranslator translator(*scene, request.path.parent_path(),
                               wideFromBytes(request.path.stem().string()), placement, model);
    translator.setNames(libraryNames(words));
    translator.setColours(std::move(words.colours));
    {
        StageClock const clock(convert);
        if (!translator.translate())
            return ReadResult::Failure(IoOutcome::NothingToShow,
                                       L"the " + std::wstring(Own.name) + L" file holds nothing to show");
    }
    result.materials = translator.takeMaterials();
    result.warnings = translator.warnings();
    result.otherFiles = translator.otherFiles();
    if (request.Report(1.0)) return stopped;
    using Seconds = std::chrono::duration<double>;
    result.timings = {{L"Parsing", Seconds(parse), true}, {L"Conversion", Seconds(convert), false}};
    return result;
}
} // namespace

void RegisterMeshLibraryReaders(ReaderRegistry& registry)
{
    for (auto const& format : Formats) registry.Add(std::make_unique<MeshLibraryReader>(format));
}
} // namespace NarMetaInfra
