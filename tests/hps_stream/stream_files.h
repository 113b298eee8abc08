#pragma once
#include "../hps/support.h"
#include "chunks.h"
#include "tree_comparison.h"
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

// Two segments and a folder of files; what the tests make goes with them.
class StreamFiles : public Scene
{
protected:
    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("hps stream " + std::to_string(::getpid()));
    HPS::SegmentKey target = HPS::Database::CreateRootSegment();
    HPS::SegmentKey library = HPS::Database::CreateRootSegment();

    StreamFiles() { std::filesystem::create_directories(folder); }
    ~StreamFiles() override
    {
        target.Delete();
        library.Delete();
        std::filesystem::remove_all(folder);
    }

    static std::string read(std::filesystem::path const& file)
    {
        std::ostringstream text;
        text << std::ifstream(file, std::ios::binary).rdbuf();
        return text.str();
    }
    HPS::UTF8 path(char const* name) const { return HPS::UTF8((folder / name).string()); }
    std::string write(HPS::SegmentKey const& segment, HPS::Stream::ExportOptionsKit const& options = {})
    {
        HPS::Stream::File::Export(path("scene.hsf"), segment, options).Wait();
        return read(folder / "scene.hsf");
    }
    HPS::Stream::ImportOptionsKit options() const
    {
        return HPS::Stream::ImportOptionsKit().SetSegment(target).SetAlternateRoot(library);
    }
    void load(std::string const& bytes)
    {
        std::ofstream(folder / "load.hsf", std::ios::binary) << bytes;
        HPS::Stream::File::Import(path("load.hsf"), options()).Wait();
    }
    // Writes the segment, reads it back into the target, and tells what became different.
    std::string changed(HPS::SegmentKey const& segment, HPS::Stream::ExportOptionsKit const& options = {})
    {
        load(write(segment, options));
        return HPS::scene::firstDifference(segment, target);
    }
};
