#pragma once
#include <filesystem>
#include <fstream>

namespace HPS::scene
{

// A file that takes its name only when it is whole, and is gone if it never is. What fails is an IOException
// that names the file.
class NewFile
{
public:
    explicit NewFile(std::filesystem::path name);
    NewFile(NewFile const&) = delete;
    NewFile& operator=(NewFile const&) = delete;
    ~NewFile();

    std::ostream& out() { return out_; }
    // Takes the place of a file of that name.
    void finish();

private:
    [[noreturn]] void fail(char const* what) const; // with the cause that the system gives

    std::filesystem::path name_;
    std::filesystem::path temporary_;
    std::ofstream out_;
    bool finished_ = false;
};

} // namespace HPS::scene
