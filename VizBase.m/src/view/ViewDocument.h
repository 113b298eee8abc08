#pragma once

#include "host_api.h"
#include "hps_api.h"

#include <vector>

namespace ZelVizBase
{

/// What a view asks of the document that it shows: the view stands below the document and knows no more of
/// it.
class ViewDocument
{
public:
    virtual HPS::Model GetModel() const = 0;
    // The document learns where it is shown.
    virtual void SetCanvas(HPS::Canvas const& canvas) = 0;
    virtual void SetView(HPS::View const& view) = 0;
    virtual void SetHighlightOptionsKit(HPS::HighlightOptionsKit const& kit) = 0;
    /// The ids of the tagged segments on the path of a pick, for the tree to mark its node.
    virtual void DefineRenderIds(std::vector<unsigned long long>& ids) = 0;
    /// Takes the mark off the tree.
    virtual void UnHighlight() = 0;
    /// The segment above all of the document's scene; false without one.
    virtual bool ShowSceneRoot(HPS::SegmentKey& root) const = 0;
    /// What lights up with a node of the tree though it is no part of it: the faces that an annotation speaks
    /// of, the entities that make a feature.
    /// @param start the view's path to the model
    virtual HPS::KeyPathArray GetCompanions(ZELVizCore::RenderId const&, HPS::KeyPath const&) const
    {
        return {};
    }

protected:
    ~ViewDocument() = default;
};

} // namespace ZelVizBase
