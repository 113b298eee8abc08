#include "scene_writer.h"
#include "store.h"
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace HPS::Stream
{
namespace
{

// A file that takes its name only when it is whole, and is gone if it never is.
class NewFile
{
public:
    explicit NewFile(std::filesystem::path name) : name_(std::move(name)), temporary_(name_)
    {
        temporary_ += ".part";
        errno = 0;
        out_.open(temporary_, std::ios::binary | std::ios::trunc);
        if (!out_) fail("cannot be written");
    }
    NewFile(NewFile const&) = delete;
    NewFile& operator=(NewFile const&) = delete;
    ~NewFile()
    {
        if (finished_) return;
        out_.close();
        std::error_code ignored;
        std::filesystem::remove(temporary_, ignored);
    }

    std::ostream& out() { return out_; }

    void finish()
    {
        errno = 0;
        out_.close();
        if (!out_) fail("could not be written to its end");
        std::error_code error;
        std::filesystem::rename(temporary_, name_, error);
        if (error) throw IOException(name_.string() + " cannot be replaced: " + error.message());
        finished_ = true;
    }

private:
    [[noreturn]] void fail(char const* what) const
    {
        auto const cause = errno ? ": " + std::string(std::strerror(errno)) : std::string();
        throw IOException(name_.string() + " " + what + cause);
    }

    std::filesystem::path name_;
    std::filesystem::path temporary_;
    std::ofstream out_;
    bool finished_ = false;
};

} // namespace

ExportNotifier File::Export(UTF8 const& name, SegmentKey const& segment, ExportOptionsKit const& options)
{
    auto const* const top = scene::store().resolve<scene::SegmentRecord>(segment);
    if (!top) throw IOException("there is no segment to export to " + name.Str());
    if (name.Empty()) throw IOException("there is no name for the file to export to");
    NewFile file(std::filesystem::path(name.Str()));
    scene::SceneWriter(file.out(), options).write(*top);
    file.finish();
    return {};
}

} // namespace HPS::Stream
