#pragma once
#include "DrawList.h"
#include "FaceLook.h"
#include "Look.h"
#include "MeshCache.h"
#include "TextCompiler.h"

namespace HPS::render
{

/// Puts what one segment holds by itself into a draw list. Needs the device's context to be current.
class SegmentDrawer
{
public:
    /// What holds for a segment beside its look.
    struct Where {
        std::uint32_t sectionSet = 0; ///< that cuts it
        scene::SlotIndex only = 0;    ///< the one geometry that is drawn; 0 for all
        bool outlined = false;        ///< faces are not seen themselves
        bool overFaces = false;       ///< the same faces are in another list, and these go over them
    };

    /// `strokes` has the tables of dashes that `list` refers to: its own, or those of the list that it lies
    /// over.
    SegmentDrawer(DrawList& list, DrawList& strokes, TextCompiler& texts, Where const& where)
        : list_(list), strokes_(strokes), texts_(texts), where_(where)
    {
    }

    /// `matrix` leads from the segment to the world.
    void draw(scene::SegmentRecord const& segment, Look const& look, FaceLooks& surfaces, Mat4 const& matrix);

private:
    void drawFaces(scene::SegmentRecord const& segment, Look const& look, FaceLooks& surfaces,
                   Mat4 const& matrix);
    void drawEdges(scene::SegmentRecord const& segment, EdgeChoice const& choice, Look const& look,
                   Mat4 const& matrix);
    void drawLines(scene::SegmentRecord const& segment, Look const& look, Mat4 const& matrix);
    void drawTexts(std::vector<scene::SlotIndex> const& slots, Look const& look, Mat4 const& matrix);
    void add(MeshCache::Drawable const& drawable, Primitive primitive, Look::Stroke const& stroke,
             Mat4 const& matrix, float reach = 0);
    void emit(MeshCache::Drawable const& drawable, Pipeline pipeline, MeshRange const& range,
              Mat4 const& matrix, Instance instance, float reach = 0);

    DrawList& list_;
    DrawList& strokes_;
    TextCompiler& texts_;
    Where where_;
};

} // namespace HPS::render
