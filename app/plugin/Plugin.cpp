#include "Plugin.h"

#include <mora/IMenuAction.h>
#include <mora/SessionMgr.h>

#include <cstring>

namespace zelview
{
namespace
{

constexpr char const* ViewType = "ZELView3D";

} // namespace

struct Plugin::Functions {
    decltype(&CreateDocument) createDocument;
    decltype(&ReadDocumentAhead) readDocumentAhead;
    decltype(&ReadViewPicture) readViewPicture;
    decltype(&CreateMenuAction) createMenuAction;
};

Plugin::Plugin() : Graphics("ZELVizBase.Plugin.so"), Documents("libzelcad.so") {}

std::variant<std::unique_ptr<Plugin>, std::string> Plugin::open()
{
    std::unique_ptr<Plugin> plugin(new Plugin);
    SharedLibrary const& graphics = plugin->Graphics;
    using Text = char const* (*)();
    auto const create = graphics.find<MoraCore::APluginFactory* (*)()>("CreatePlugin");
    auto const type = create ? graphics.find<Text>("GetPluginType") : nullptr;
    auto const name = type ? graphics.find<Text>("GetPluginName") : nullptr;
    if (!name) return graphics.cause();
    if (std::strcmp(type(), ViewType) != 0)
        return std::string(name()) + " is of another version: it makes " + type() + ", not " + ViewType;

    SharedLibrary const& documents = plugin->Documents;
    plugin->Found = std::make_unique<Functions>(
        Functions{documents.find<decltype(&CreateDocument)>("CreateDocument"),
                  documents.find<decltype(&ReadDocumentAhead)>("ReadDocumentAhead"),
                  documents.find<decltype(&ReadViewPicture)>("ReadViewPicture"),
                  documents.find<decltype(&CreateMenuAction)>("CreateMenuAction")});
    Functions const& found = *plugin->Found;
    if (!found.createDocument || !found.readDocumentAhead || !found.readViewPicture ||
        !found.createMenuAction)
        return documents.cause();
    try {
        plugin->Factory.reset(create());
        plugin->Factory->describe();
        plugin->Factory->load();
    } catch (std::exception const& fault) {
        return std::string("the plug-in cannot be started: ") + fault.what();
    }
    return plugin;
}

Plugin::~Plugin()
{
    if (Factory) Factory->unload();
}

std::unique_ptr<MoraCore::IView3DEvo> Plugin::makeView()
{
    return std::unique_ptr<MoraCore::IView3DEvo>(Factory->createInstance(ViewType));
}

std::unique_ptr<MoraCore::IDocumentEvo> Plugin::makeDocument(MoraCore::AViewTree& tree) const
{
    return std::unique_ptr<MoraCore::IDocumentEvo>(Found->createDocument(&tree));
}

bool Plugin::readAhead(MoraCore::IDocumentEvo& document, std::wstring const& path, ReadGuard const& guard,
                       Progress progress) const
{
    return Found->readDocumentAhead(document, path.c_str(), guard, progress);
}

bool Plugin::perform(MenuEntry entry, ZELVizCore::RenderId const& id) const
{
    try {
        std::unique_ptr<MoraCore::IMenuAction> const action(Found->createMenuAction(entry));
        return (*action)(id);
    } catch (std::exception const& fault) {
        std::string const words = fault.what();
        MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage({words.begin(), words.end()},
                                                                       MoraCore::MessageType::Error);
        return false;
    }
}

QImage Plugin::pictureOf(MoraCore::IView3DEvo& view) const
{
    QImage image;
    auto const take = [](void* target, int width, int height, unsigned char const* pixels) {
        QImage const wrapped(pixels, width, height, 4 * width, QImage::Format_RGBX8888);
        *static_cast<QImage*>(target) = wrapped.convertToFormat(QImage::Format_RGB888);
    };
    Found->readViewPicture(view, take, &image);
    return image;
}

} // namespace zelview
