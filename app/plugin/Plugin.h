#pragma once

#include "SharedLibrary.h"
#include "document_entry.h"

#include <QImage>

#include <mora/APluginFactory.h>
#include <mora/AViewTree.h>
#include <mora/IDocumentEvo.h>
#include <mora/IView3DEvo.h>

#include <memory>
#include <variant>

namespace zelview
{

/// The graphics plug-in and the library of the documents, behind the host's interfaces. It must outlive every
/// view and document that it made.
class Plugin
{
public:
    /// Told the share that is done, from 0 to 1; may set the flag to stop.
    using Progress = void (*)(double done, bool& cancel);

    /// Opens, describes and loads both. A string is the cause of a failure, one line.
    static std::variant<std::unique_ptr<Plugin>, std::string> open();
    ~Plugin();

    MoraCore::APluginFactory& factory() { return *Factory; }

    /// The widget behind it has no parent yet and belongs to whoever gives it one.
    std::unique_ptr<MoraCore::IView3DEvo> makeView();
    /// @param tree must outlive the document
    std::unique_ptr<MoraCore::IDocumentEvo> makeDocument(MoraCore::AViewTree& tree) const;
    /// Reads a file into a document that nobody shows yet; `Open` with the same path then only builds.
    /// Touches no scene, so it may run beside the thread of the windows, one file at a time.
    bool readAhead(MoraCore::IDocumentEvo& document, std::wstring const& path, ReadGuard const& guard,
                   Progress progress) const;
    /// Calls an entry of a menu with a node; a fault becomes a message of the session.
    bool perform(MenuEntry entry, ZELVizCore::RenderId const& id) const;
    /// What a view shows, in device pixels; null before its first picture.
    QImage pictureOf(MoraCore::IView3DEvo& view) const;

private:
    struct Functions;
    Plugin();

    SharedLibrary Graphics;
    SharedLibrary Documents;
    std::unique_ptr<Functions> Found;
    std::unique_ptr<MoraCore::APluginFactory> Factory;
};

} // namespace zelview
