#include "read_support.h"

#include "ReaderRegistry.h"
#include "open_cascade_readers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include <unistd.h>

namespace ReadSupport
{
namespace
{
ReaderRegistry const& registry()
{
    static ReaderRegistry const readers = [] {
        ReaderRegistry filled;
        RegisterOpenCascadeReaders(filled);
        return filled;
    }();
    return readers;
}

ModelReader const* readerOf(std::filesystem::path const& file)
{
    auto const bytes = bytesOf(file);
    auto const extension = file.extension().string();
    ModelReader const* best = nullptr;
    auto confidence = Confidence::No;
    for (auto const& reader : registry().GetReaders()) {
        auto const claim = reader->Recognise(std::string_view(bytes).substr(0, ReaderRegistry::HeadSize),
                                             std::string_view(extension).substr(extension.empty() ? 0 : 1));
        if (claim > confidence) {
            confidence = claim;
            best = reader.get();
        }
    }
    return best;
}
} // namespace

std::unique_ptr<ReadModel> read(std::filesystem::path const& file, bool graphical, Progress progress)
{
    auto outcome = std::make_unique<ReadModel>();
    ReadRequest request;
    request.path = file;
    request.options.graphical = graphical;
    request.processors = 2;
    request.progress = progress;
    auto const* const reader = readerOf(file);
    outcome->result = reader ? reader->Read(request, outcome->model)
                             : ReadResult::Failure(IoOutcome::Damaged, L"The file is of no known kind.");
    return outcome;
}

std::filesystem::path modelFolder()
{
    return std::filesystem::path(ZEL_SOURCE_DIR "/../shared/models");
}

TemporaryFolder::TemporaryFolder()
{
    auto const* const test = testing::UnitTest::GetInstance()->current_test_info();
    auto name = std::string(test->test_suite_name()) + "-" + test->name() + "-" + std::to_string(getpid());
    std::ranges::replace(name, '/', '-');
    static int count = 0; // a test may have several
    Path = std::filesystem::temp_directory_path() / (name + "-" + std::to_string(count++));
    std::filesystem::create_directories(Path);
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
}

std::filesystem::path TemporaryFolder::write(std::string const& name, std::string_view bytes) const
{
    std::ofstream(Path / name, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return Path / name;
}

std::string bytesOf(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

double volumeOf(BrepBody const& body)
{
    double sum = 0.0;
    for (auto const& face : body.faces) {
        auto const points = body.PointsOf(face);
        auto const triangles = body.TrianglesOf(face);
        for (std::size_t i = 0; i < triangles.size(); i += 3) {
            auto const a = points.subspan(3 * triangles[i], 3), b = points.subspan(3 * triangles[i + 1], 3),
                       c = points.subspan(3 * triangles[i + 2], 3);
            sum += a[0] * (double(b[1]) * c[2] - double(b[2]) * c[1]) +
                   a[1] * (double(b[2]) * c[0] - double(b[0]) * c[2]) +
                   a[2] * (double(b[0]) * c[1] - double(b[1]) * c[0]);
        }
    }
    return sum / 6.0;
}

Identity identityOf(ZELProductStructure const& model)
{
    Identity identity;
    std::wstring pid;
    auto const addInstance = [&](ZELInstance const& instance) {
        instance.GetPID(pid);
        identity.pids.push_back(pid);
        identity.ids.push_back(instance.GetHashedID());
    };
    for (auto const& root : model.GetRootInstances()) addInstance(*root);
    for (auto const& reference : model.GetReferences()) {
        reference->GetPID(pid);
        identity.pids.push_back(pid);
        identity.ids.push_back(reference->GetUniqueID());
        for (auto const& instance : reference->GetInstances()) addInstance(*instance);
        for (auto const& body : reference->GetBodies()) {
            identity.ids.push_back(body.id);
            for (auto const& face : body.faces) identity.ids.push_back(face.id);
            for (auto const& edge : body.edges) identity.ids.push_back(edge.id);
            for (auto const& vertex : body.vertices) identity.ids.push_back(vertex.id);
        }
    }
    for (auto const& mesh : meshesOf(model)) identity.ids.push_back(mesh->GetHashedID());
    return identity;
}

double determinantOf(Matrix const& m)
{
    return m[0] * (double(m[5]) * m[10] - double(m[6]) * m[9]) -
           m[1] * (double(m[4]) * m[10] - double(m[6]) * m[8]) +
           m[2] * (double(m[4]) * m[9] - double(m[5]) * m[8]);
}

std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshesOf(ZELProductStructure const& model)
{
    std::vector<std::shared_ptr<NarMetaVisu::MeshRep>> meshes;
    std::wstring pid;
    for (auto const& reference : model.GetReferences())
        if (reference->GetSG() && reference->GetPID(pid)) reference->GetSG()->GetMeshes(pid, meshes);
    return meshes;
}

CacheFolder::CacheFolder()
{
    setenv("XDG_CACHE_HOME", Folder.path().c_str(), 1);
}

CacheFolder::~CacheFolder()
{
    unsetenv("XDG_CACHE_HOME");
}

std::vector<std::filesystem::path> CacheFolder::entries() const
{
    std::vector<std::filesystem::path> found;
    std::error_code error;
    for (auto const& file : std::filesystem::directory_iterator(Folder.path() / "zelview", error))
        found.push_back(file.path());
    return found;
}

std::string textOf(ZELProductStructure const& model)
{
    TemporaryFolder const folder;
    auto const path = folder.path() / "compare.zel_xml";
    EXPECT_TRUE(ZelIO().WriteXml(path.wstring().c_str(), &model, nullptr));
    return bytesOf(path);
}

bool hasStage(ZelIO const& io, std::wstring const& name)
{
    return std::ranges::any_of(io.GetTimings(), [&](StageTiming const& stage) { return stage.name == name; });
}

std::vector<char const*> const ComparedFiles = {
    "parts/red_cube_blue_cylinder.step", "nist/nist_ctc_05_asme1_ap242-e1.stp", "asm/ublox_JODY-W4.step",
    "gltf/car.glb", "mesh/cube_with_materials.obj"};

std::string fileTestName(testing::TestParamInfo<char const*> const& test)
{
    auto name = std::filesystem::path(test.param).stem().string();
    std::ranges::replace_if(
        name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
    return name;
}
} // namespace ReadSupport
