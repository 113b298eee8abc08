#include "FontLibrary.h"
#include "SceneGate.h"
#include "records.h"
#include "warm_up.h"
#include <hps/World.h>

namespace HPS
{
namespace
{

struct Settings {
    UTF8Array fontDirectories;
    UTF8 materialLibraryDirectory;
};
Settings& settings()
{
    static Settings shared;
    return shared;
}

} // namespace

World::World(UTF8 const&) {}

World::~World()
{
    settings() = {};
}

void World::SetFontDirectories(UTF8Array const& directories)
{
    settings().fontDirectories = directories;
    std::vector<std::string> paths;
    for (UTF8 const& directory : directories) paths.push_back(directory.Str());
    render::FontLibrary::instance().setDirectories(std::move(paths));
}
UTF8Array const& World::GetFontDirectories()
{
    return settings().fontDirectories;
}

void World::SetMaterialLibraryDirectory(UTF8 const& directory)
{
    settings().materialLibraryDirectory = directory;
}
UTF8 const& World::GetMaterialLibraryDirectory()
{
    return settings().materialLibraryDirectory;
}

bool World::PrepareGraphics(int width, int height)
{
    return width > 0 && height > 0 && render::warmUp(width, height, CanvasRecord{}.samples);
}

bool World::IsDrawing()
{
    return scene::SceneGate::isClosed();
}

} // namespace HPS
