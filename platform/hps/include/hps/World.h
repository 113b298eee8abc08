#pragma once
#include <hps/UTF8.h>
#include <vector>

namespace HPS
{

using UTF8Array = std::vector<UTF8>;

// The library in use. Make one before anything else and let it go last; settings that hold for all go here.
class World
{
public:
    // The licence text is not looked at: the library needs none.
    explicit World(UTF8 const& licence = "");
    ~World();
    World(World const&) = delete;
    World& operator=(World const&) = delete;

    // Searched in order for the files of fonts.
    static void SetFontDirectories(UTF8Array const& directories);
    static UTF8Array const& GetFontDirectories();
    static void SetMaterialLibraryDirectory(UTF8 const& directory);
    static UTF8 const& GetMaterialLibraryDirectory();
};

} // namespace HPS
