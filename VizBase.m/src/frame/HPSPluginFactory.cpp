#include "HPSPluginFactory.h"

#include "HPSCamera.h"
#include "View3DEvo.h"
#include "ZELView3D.h"
#include "font_directories.h"

#include <climits>
#include <cstring>
#include <cwchar>
#include <stdexcept>
#include <vector>

namespace
{

constexpr char const* viewType = "ZELView3D";

/// In the multi-byte form of the current locale; empty for what it cannot hold.
std::string narrow(std::wstring const& text)
{
    std::vector<char> bytes(text.size() * MB_LEN_MAX + 1);
    std::size_t const length = std::wcstombs(bytes.data(), text.c_str(), bytes.size());
    return length == static_cast<std::size_t>(-1) ? std::string() : std::string(bytes.data(), length);
}

} // namespace

namespace ZelVizBase
{

HPSPluginFactory::HPSPluginFactory()
{
    setName(GetPluginName());
}

void HPSPluginFactory::describe()
{
    setDescription("HPS functionality. Viewer, Rendering system.");
    setName("HPSPlugin");
    addGetProduct("HOOPS HPS "); // the host's list of products has it with the blank
}

void HPSPluginFactory::load()
{
    if (isLoaded()) return;
    World = std::make_unique<HPS::World>();
    try {
        if (HPS::UTF8Array const fonts = fontDirectories(); !fonts.empty())
            HPS::World::SetFontDirectories(fonts);
        std::wstring const materials = MoraCore::SessionMgr::Instance().MaterialLibraryDirectory();
        if (!materials.empty()) HPS::World::SetMaterialLibraryDirectory(narrow(materials).c_str());
        MoraCore::View3DFactory& views = MoraCore::View3DFactory::Instance();
        views.RegisterCameraDefinition(new HPSCameraYUp(nullptr));
        views.RegisterCameraDefinition(new HPSCameraZUp(nullptr));
        setComponentName("HPS");
    } catch (std::exception const&) {
        setLoaded(false);
        throw;
    } catch (...) {
        setLoaded(false);
        throw std::runtime_error("HPS failed to initialize");
    }
    setLoaded(true);
}

void HPSPluginFactory::unload()
{
    World.reset();
    setLoaded(false);
}

MoraCore::IView3DEvo* HPSPluginFactory::createInstance(char const* type)
{
    if (type == nullptr || std::strcmp(type, viewType) != 0)
        throw std::invalid_argument(std::string("HPSPluginFactory cannot create instance of ") +
                                    (type != nullptr ? type : ""));
    return new View3DEvo(new ZELView3D(nullptr));
}

} // namespace ZelVizBase

MoraCore::APluginFactory* CreatePlugin()
{
    return new ZelVizBase::HPSPluginFactory;
}

char const* GetPluginType()
{
    return viewType;
}

char const* GetPluginName()
{
    return "HPS";
}
