#pragma once
#include <mora/AViewTree.h>
#include <mora/IContentRenderer.h>
#include <mora/Node.h>

namespace MoraCore
{

/// Base of what writes a tree into a tree view. Content, view and node are not owned and may be null.
class ARendererTree : public IContentRenderer
{
public:
    ARendererTree(AContent* content, AViewTree* view, ZELVizCore::Node* node)
        : content_(content), view_(view), node_(node)
    {
    }

    /// Empties the tree and what was remembered with it.
    void ClearAll();
    bool IsRendered() const { return rendered_; }
    AContent* GetContent() const { return content_; }
    ZELVizCore::Node* GetNode() const { return node_; }
    AViewTree* GetView() const { return view_; }

protected:
    virtual void ClearAllImpl() = 0;

public:
    virtual void SetView(AViewTree* view) { view_ = view; }

protected:
    virtual bool preRender() { return view_ != nullptr; }
    virtual void postRender() {}

    /// Builder of the view's tree; calling it without a view is the caller's fault.
    TreeBuilder& getTreeBuilder() const;
    void setRendered(bool rendered) { rendered_ = rendered; }

private:
    AContent* content_;
    AViewTree* view_;
    ZELVizCore::Node* node_;
    bool rendered_ = false;
};

} // namespace MoraCore
