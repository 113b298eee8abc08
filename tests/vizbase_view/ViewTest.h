#pragma once

#include "TestDocument.h"
#include "ZELView3D.h"

#include <gmock/gmock.h>

namespace ZelVizBase
{

/// A document whose model holds two triangles side by side: "left", tagged as the mesh 33 of the instance 22,
/// and "right", an annotation 55 of the view 44. It notes what the tree is told.
class TaggedDocument : public TestDocument
{
public:
    TaggedDocument();
    void DefineRenderIds(std::vector<unsigned long long>& ids) override { Told = ids; }
    using TestDocument::UnHighlight;
    void UnHighlight() override { ++Cleared; }

    HPS::SegmentKey Instance, Mesh, PmiView, Pmi;
    std::vector<unsigned long long> Told;
    int Cleared = 0;
};

/// A view of that document, 200 by 200 pixels, that looks along the z axis: at (50, 100) is the left
/// triangle, at (150, 100) the right one, and at (100, 20) nothing.
class ViewTest : public testing::Test
{
protected:
    ViewTest();
    ~ViewTest() override;

    TaggedDocument Document;
    ZELView3D View;
};

} // namespace ZelVizBase
