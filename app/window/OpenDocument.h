#pragma once

#include "HostTree.h"
#include "Plugin.h"

#include <QString>

#include <memory>

namespace zelview
{

/// A document, the tree that it writes and the file that it came from.
struct OpenDocument {
    OpenDocument(Plugin const& plugin, QString file)
        : path(std::move(file)), document(plugin.makeDocument(tree))
    {
    }

    QString path; ///< absolute
    HostTree tree;
    std::unique_ptr<MoraCore::IDocumentEvo> document;
};

} // namespace zelview
