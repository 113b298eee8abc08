#include "NewFile.h"
#include <cerrno>
#include <cstring>
#include <hps/IOException.h>

namespace HPS::scene
{

NewFile::NewFile(std::filesystem::path name) : name_(std::move(name)), temporary_(name_)
{
    temporary_ += ".part";
    errno = 0;
    out_.open(temporary_, std::ios::binary | std::ios::trunc);
    if (!out_) fail("cannot be written");
}

NewFile::~NewFile()
{
    if (finished_) return;
    out_.close();
    std::error_code ignored;
    std::filesystem::remove(temporary_, ignored);
}

void NewFile::finish()
{
    errno = 0;
    out_.close();
    if (!out_) fail("could not be written to its end");
    std::error_code error;
    std::filesystem::rename(temporary_, name_, error);
    if (error) throw IOException(name_.string() + " cannot be replaced: " + error.message());
    finished_ = true;
}

void NewFile::fail(char const* what) const
{
    auto const cause = errno ? ": " + std::string(std::strerror(errno)) : std::string();
    throw IOException(name_.string() + " " + what + cause);
}

} // namespace HPS::scene
