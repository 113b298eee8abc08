#pragma once

#include "host_api.h"
#include "hps_api.h"

#include <vector>

namespace ZelVizBase
{

class ZELView3D;

/// What is selected in a view by hand: key paths, each from a geometry or a segment up to the window. They
/// are lit up together, kept as the view's active selection, entered in its SelectionHolder and marked in the
/// document's tree.
class ViewSelection
{
public:
    /// `view` is not owned and must outlive this.
    explicit ViewSelection(ZELView3D& view) : View(view) {}

    void Replace(HPS::KeyPathArray const& paths);
    /// What nodes of the tree stand for. The tree is not told: it knows.
    void Choose(std::vector<ZELVizCore::RenderId> const& nodes);
    void Add(HPS::KeyPathArray const& paths);
    /// Takes a path away that is selected.
    void Toggle(HPS::KeyPath const& path);
    /// The highlights are gone already.
    void Forget();

    /// A path, or one to what holds it, is selected.
    bool Covers(HPS::KeyPath const& path) const;
    HPS::KeyPathArray const& Paths() const { return Selected; }
    /// Paths to what holds each of them in its place; none at the top.
    HPS::KeyPathArray Parents() const;
    /// In the world; not valid if there is none.
    HPS::SimpleCuboid Extent() const;
    std::vector<ZELVizCore::RenderId> Ids() const;

private:
    void tellTree() const;
    HPS::KeyPathArray companionsOf(std::vector<ZELVizCore::RenderId> const& nodes) const;
    void light(HPS::KeyPathArray const& paths, std::vector<ZELVizCore::RenderId> const& nodes);

    ZELView3D& View;
    HPS::KeyPathArray Selected;
    HPS::KeyPathArray Companions; ///< lit with it, see ViewDocument
};

/// The node that a path leads to, by the document shown in a view; empty without one.
ZELVizCore::RenderId nodeOf(ZELView3D const& view, HPS::KeyPath const& path);

} // namespace ZelVizBase
