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

    // Opens the graphics device and prepares it for ordinary pictures, which takes the longer part of a first
    // picture on a software driver; the first canvas to be drawn should have that size in pixels. The one
    // operation that may run on a thread of its own while others use the database; it has to be over before
    // the first update of a canvas. False if there is no device: the update tells why.
    static bool PrepareGraphics(int width, int height);

    // A picture is being made beside the caller, who would wait for it in the next call that concerns the
    // scene.
    static bool IsDrawing();
};

} // namespace HPS
