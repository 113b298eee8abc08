#pragma once

#include <QObject>

#include <mora/AViewTree.h>

namespace zelview
{

/// The tree of one document, which tells when a plug-in has written it, marks a node or empties it.
class HostTree final : public QObject, public MoraCore::AViewTree
{
    Q_OBJECT

public:
    HostTree();

    void ClearItems() override;
    void MarkItem(RenderId const& id, bool visible) override;
    void HighlightItem(RenderId const& id) override;
    void ClearHighlight() override;

signals:
    /// The tree is another one now.
    void rewritten();
    void marked(ZELVizCore::RenderId const& id);
    void highlighted(ZELVizCore::RenderId const& id);
    void highlightCleared();
};

} // namespace zelview
