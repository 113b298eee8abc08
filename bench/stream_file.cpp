// Stream files: a smooth surface of 5,000,000 triangles and one of many small shells written and read, beside
// the same number of raw bytes written and read by themselves.
#include <benchmark/benchmark.h>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <hps/hps.h>
#include <unistd.h>

using namespace HPS;

namespace
{

constexpr int around = 2500, along = 1000; // 2 triangles for each

ShellKit torus(int columns, int rows)
{
    std::vector<Point> points;
    std::vector<Vector> normals;
    std::vector<int> faces;
    constexpr float turn = 6.2831853f;
    for (int i = 0; i < columns; ++i)
        for (int k = 0; k < rows; ++k) {
            float const u = turn * float(i) / float(columns), v = turn * float(k) / float(rows);
            Vector const normal(std::cos(u) * std::cos(v), std::sin(u) * std::cos(v), std::sin(v));
            points.emplace_back(10 * std::cos(u) + 3 * normal.x, 10 * std::sin(u) + 3 * normal.y,
                                3 * normal.z);
            normals.push_back(normal);
            int const next = (i + 1) % columns, above = (k + 1) % rows;
            int const a = i * rows + k, b = next * rows + k, c = next * rows + above, d = i * rows + above;
            faces.insert(faces.end(), {3, a, b, c, 3, a, c, d});
        }
    return ShellKit()
        .SetPoints(std::move(points))
        .SetFacelist(std::move(faces))
        .SetVertexNormalsByRange(0, normals);
}

// What the triangles take in memory: points, normals and three indices each.
constexpr double rawBytes = double(around) * along * (12 + 12 + 2 * 12);

struct Surface {
    SegmentKey root = Database::CreateRootSegment();
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("stream bench " + std::to_string(::getpid()));
    UTF8 file{(folder / "scene.hsf").string()};

    explicit Surface(int shells)
    {
        std::filesystem::create_directories(folder);
        for (int i = 0; i < shells; ++i)
            root.Subsegment(UTF8("part " + std::to_string(i))).InsertShell(torus(around, along / shells));
    }
    ~Surface()
    {
        root.Delete();
        std::filesystem::remove_all(folder);
    }
    void report(benchmark::State& state) const
    {
        auto const bytes = double(std::filesystem::file_size(file.Str()));
        state.counters["raw_MB"] = rawBytes / 1e6;
        state.counters["file_MB"] = bytes / 1e6;
        state.counters["ratio"] = rawBytes / bytes;
    }
};

Stream::ExportOptionsKit optionsOf(benchmark::State const& state)
{
    return Stream::ExportOptionsKit().SetNormalCompression(state.range(1) != 0);
}

void write(benchmark::State& state)
{
    Surface const surface(int(state.range(0)));
    for (auto _ : state) Stream::File::Export(surface.file, surface.root, optionsOf(state)).Wait();
    surface.report(state);
}

void read(benchmark::State& state)
{
    Surface const surface(int(state.range(0)));
    Stream::File::Export(surface.file, surface.root, optionsOf(state)).Wait();
    for (auto _ : state) {
        auto target = Database::CreateRootSegment();
        Stream::File::Import(surface.file, Stream::ImportOptionsKit().SetSegment(target)).Wait();
        state.PauseTiming();
        target.Delete();
        state.ResumeTiming();
    }
    surface.report(state);
}

void writeRaw(benchmark::State& state)
{
    Surface const surface(1);
    std::vector<char> const bytes(std::size_t(rawBytes), 1);
    for (auto _ : state)
        std::ofstream(surface.file.Str(), std::ios::binary)
            .write(bytes.data(), std::streamsize(bytes.size()));
}

void readRaw(benchmark::State& state)
{
    Surface const surface(1);
    std::vector<char> bytes(std::size_t(rawBytes), 1);
    std::ofstream(surface.file.Str(), std::ios::binary).write(bytes.data(), std::streamsize(bytes.size()));
    for (auto _ : state)
        std::ifstream(surface.file.Str(), std::ios::binary).read(bytes.data(), std::streamsize(bytes.size()));
}

BENCHMARK(writeRaw)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(readRaw)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(write)
    ->Args({1, 0})
    ->Args({1, 1})
    ->Args({100, 0})
    ->ArgNames({"shells", "packed_normals"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(read)
    ->Args({1, 0})
    ->Args({1, 1})
    ->Args({100, 0})
    ->ArgNames({"shells", "packed_normals"})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

} // namespace

BENCHMARK_MAIN();
