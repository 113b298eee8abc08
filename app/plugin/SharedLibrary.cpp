#include "SharedLibrary.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>

namespace zelview
{
namespace
{

namespace fs = std::filesystem;

fs::path programFolder()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error).parent_path();
}

/// Where the file lies, or where it is missed.
fs::path locate(std::string const& name)
{
    if (char const* const given = std::getenv("ZELVIEW_LIBRARY_PATH"); given && *given)
        return fs::path(given) / name;
    fs::path const program = programFolder();
    std::error_code error;
    fs::path const built = program / "../lib" / name;
    if (fs::exists(built, error)) return built;
    return (program / ZEL_LIBRARY_FOLDER / name).lexically_normal();
}

} // namespace

SharedLibrary::SharedLibrary(std::string const& name) : Path(locate(name))
{
    Handle = ::dlopen(Path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!Handle) Cause = std::string("a library cannot be loaded: ") + ::dlerror();
}

void* SharedLibrary::findSymbol(char const* name) const
{
    if (!Handle) return nullptr;
    void* const symbol = ::dlsym(Handle, name);
    if (!symbol) Cause = Path + " is of another version: it has no " + name;
    return symbol;
}

} // namespace zelview
