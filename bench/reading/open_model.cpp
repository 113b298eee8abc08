// How long a STEP file takes to open, beside its floor: what Open CASCADE takes to read, translate and mesh
// the same parts by the same tolerance in one thread, without a model being made of them. Each way runs in a
// process of its own, whose memory is its own, and the best of several turns counts.
//
//     open_model [--turns N] [--processors N] [--parts N | FILE...]
#include "many_parts.h"

#include <narmeta/io/ZelIO.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <Interface_Static.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Message_Printer.hxx>
#include <STEPCAFControl_Reader.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDocStd_Document.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int ResultDescriptor = 3;

struct Cost {
    double seconds = 0;
    double megabytes = 0; ///< peak of the process, or of its child if that is larger
};

double since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// One turn of this program in a process of its own, so that nothing that another one left in memory is
// counted: it writes its seconds, negative if it failed.
Cost inProcess(std::vector<std::string> words)
{
    words.insert(words.begin(), {"open_model", "--turn"});
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return {-1.0, 0.0};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, ends[1], ResultDescriptor);
    pid_t child = -1;
    auto const failed = posix_spawn(&child, "/proc/self/exe", &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    Cost cost{-1.0, 0.0};
    if (!failed && read(ends[0], &cost.seconds, sizeof cost.seconds) != sizeof cost.seconds)
        cost.seconds = -1.0;
    close(ends[0]);
    if (failed) return cost;
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    cost.megabytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
    return cost;
}

Cost best(int turns, std::vector<std::string> const& words)
{
    Cost least{1e9, 1e9};
    for (int i = 0; i < turns; ++i) {
        auto const cost = inProcess(words);
        if (cost.seconds < 0) return cost;
        least = {std::min(least.seconds, cost.seconds), std::min(least.megabytes, cost.megabytes)};
    }
    return least;
}

double floorOf(fs::path const& file)
{
    Message::DefaultMessenger()->RemovePrinters(STANDARD_TYPE(Message_Printer));
    auto const start = Clock::now();
    Handle(TDocStd_Document) document;
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", document);
    STEPCAFControl_Reader reader;
    reader.SetGDTMode(false);
    reader.SetViewMode(false);
    reader.SetMatMode(false);
    if (reader.ReadFile(file.c_str()) != IFSelect_RetDone || !reader.Transfer(document)) return -1.0;
    auto const shapes = XCAFDoc_DocumentTool::ShapeTool(document->Main());
    TDF_LabelSequence labels;
    shapes->GetShapes(labels);
    for (auto const& label : labels) {
        if (!XCAFDoc_ShapeTool::IsSimpleShape(label)) continue;
        auto const shape = XCAFDoc_ShapeTool::GetShape(label);
        Bnd_Box box;
        BRepBndLib::Add(shape, box, false);
        auto const extent = box.IsVoid() || box.IsOpen() ? 0.0 : std::sqrt(box.SquareExtent());
        BRepMesh_IncrementalMesh(shape, std::isfinite(extent) && extent > 0 ? 0.002 * extent : 0.1, false,
                                 0.3142);
    }
    return since(start);
}

double openBy(std::string_view way, unsigned processors, fs::path const& file)
{
    NarMetaInfra::ZelIO io;
    NarMetaInfra::ZELProductStructure model;
    io.SetNumProcessors(processors);
    io.SetReadIsolated(way == "isolated");
    io.SetKeepExactShapes(way != "plain"); // as the window does
    if (way == "cached") io.SetCacheLimit(1u << 30);
    auto const start = Clock::now();
    if (!io.Read(file.wstring().c_str(), &model, nullptr)) return -1.0;
    auto const seconds = since(start);
    if (std::getenv("ZEL_BENCH_STAGES")) {
        for (auto const& stage : io.GetTimings())
            std::fprintf(stderr, "    %-14ls %8.1f ms\n", stage.name.c_str(), 1e3 * stage.seconds.count());
    }
    return seconds;
}

// The work of one process: --turn WAY PROCESSORS FILE
int turn(std::string_view way, int number, fs::path const& file)
{
    double seconds = -1.0;
    if (way == "write")
        seconds = writeManyParts(file, number) ? 0.0 : -1.0;
    else if (way == "floor")
        seconds = floorOf(file);
    else
        seconds = openBy(way, static_cast<unsigned>(number), file);
    return write(ResultDescriptor, &seconds, sizeof seconds) == sizeof seconds ? 0 : 1;
}

void measure(fs::path const& file, unsigned processors, int turns)
{
    auto const count = std::to_string(processors);
    auto const floor = best(turns, {"floor", "1", file});
    std::printf("| %s | %.1f | %.0f ms, %.0f MB |", file.filename().c_str(),
                static_cast<double>(fs::file_size(file)) / 1e6, 1e3 * floor.seconds, floor.megabytes);
    double first = 0.0;
    std::vector<std::string> const ways[] = {
        {"plain", "1", file}, {"plain", count, file}, {"isolated", count, file}};
    for (auto const& way : ways) {
        auto const cost = best(turns, way);
        first = cost.seconds;
        std::printf(" %.2f, %.2f |", cost.seconds / floor.seconds, cost.megabytes / floor.megabytes);
        std::fflush(stdout);
    }
    // The first read with a cache fills it; it does not count.
    inProcess({"cached", count, file});
    auto const second = best(turns, {"cached", count, file});
    std::printf(" %.1f ms, %.0f times |\n", 1e3 * second.seconds, first / second.seconds);
}
} // namespace

int main(int argc, char** argv)
{
    if (argc == 5 && std::string_view(argv[1]) == "--turn") return turn(argv[2], std::atoi(argv[3]), argv[4]);
    int turns = 3, parts = 200;
    unsigned processors = std::max(2u, std::thread::hardware_concurrency());
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        std::string_view const word = argv[i];
        auto const number = [&] { return i + 1 < argc ? std::max(1, std::atoi(argv[++i])) : 1; };
        if (word == "--turns")
            turns = number();
        else if (word == "--processors")
            processors = static_cast<unsigned>(number());
        else if (word == "--parts")
            parts = number();
        else
            files.emplace_back(word);
    }
    auto const folder = fs::temp_directory_path() / ("open_model-" + std::to_string(getpid()));
    fs::create_directories(folder / "cache");
    setenv("XDG_CACHE_HOME", (folder / "cache").c_str(), 1);
    if (files.empty()) {
        files.push_back(folder / "many_parts.step");
        if (inProcess({"write", std::to_string(parts), files.front()}).seconds < 0) return 1;
    }
    std::printf(
        "Open CASCADE in one thread is the floor; times and memory of %u processors as shares of it.\n\n",
        processors);
    std::puts("| file | MB | floor | one thread | all | all, own process | second open "
              "|\n|---|---|---|---|---|---|---|");
    for (auto const& file : files) measure(file, processors, turns);
    fs::remove_all(folder);
}
