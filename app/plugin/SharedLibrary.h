#pragma once

#include <string>

namespace zelview
{

/// A library that belongs to the program, opened at run time. It stays open to the end of the process:
/// objects that it made may live as long.
class SharedLibrary
{
public:
    /// Looks in the folder that the environment names in ZELVIEW_LIBRARY_PATH, or else in those beside the
    /// program.
    explicit SharedLibrary(std::string const& name);

    /// A function by its exported name; null if the library or the function is not there.
    template <class Function> Function find(char const* name) const
    {
        return reinterpret_cast<Function>(findSymbol(name));
    }

    bool isOpen() const { return Handle != nullptr; }
    /// Why the library could not be opened, or which function was missed last; one line.
    std::string const& cause() const { return Cause; }

private:
    void* findSymbol(char const* name) const;

    std::string Path;
    void* Handle = nullptr;
    mutable std::string Cause;
};

} // namespace zelview
