#include "OutputFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace zelview
{
namespace fs = std::filesystem;

namespace
{

std::string causeOf(int error)
{
    return std::strerror(error);
}

std::optional<std::string> writeWhole(fs::path const& path, std::string_view bytes)
{
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file) return causeOf(errno);
    bool good = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    int error = errno;
    if (std::fclose(file) != 0 && good) {
        good = false;
        error = errno;
    }
    if (good) return std::nullopt;
    return causeOf(error);
}

} // namespace

OutputFile::OutputFile(fs::path const& target)
{
    // A rename onto a symbolic link would replace the link and leave its file alone.
    std::error_code error;
    Target = fs::weakly_canonical(fs::absolute(target, error), error);
    if (error) Target = target;
    Temporary = Target.parent_path() / (".zelview-" + std::to_string(::getpid()) + ".part");
}

bool OutputFile::inPlace() const
{
    std::error_code error;
    return fs::exists(Target, error) && !fs::is_regular_file(Target, error);
}

std::optional<std::string> OutputFile::check() const
{
    std::error_code error;
    if (fs::is_directory(Target, error)) return causeOf(EISDIR);
    bool const exists = fs::exists(Target, error);
    if (exists && ::access(Target.c_str(), W_OK) != 0) return causeOf(errno);
    if (inPlace()) return std::nullopt;
    if (::access(Target.parent_path().c_str(), W_OK | X_OK) != 0) return causeOf(errno);
    return std::nullopt;
}

std::optional<std::string> OutputFile::write(std::string_view bytes) const
{
    if (inPlace()) return writeWhole(Target, bytes);
    std::optional<std::string> cause = writeWhole(Temporary, bytes);
    if (!cause && std::rename(Temporary.c_str(), Target.c_str()) != 0) cause = causeOf(errno);
    if (cause) clearAway();
    return cause;
}

void OutputFile::clearAway() const
{
    ::unlink(Temporary.c_str());
}

} // namespace zelview
