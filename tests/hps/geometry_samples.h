// One valid geometry of every kind, for all tests that go through the library's list of kinds.
#pragma once
#include <hps/hps.h>

namespace HPS
{

// A geometry that differs from its default in everything that may differ.
struct Sample {
    SegmentKey root;
    std::vector<Point> const row{{0, 0, 0}, {1, 2, 0}, {3, 1, 0}, {4, 0, 1}};

    operator ShellKit() const { return ShellKit().SetPoints(row).SetFacelist({3, 0, 1, 2, 3, 0, 2, 3}); }
    operator LineKit() const { return LineKit().SetPoints(row); }
    operator PolygonKit() const { return PolygonKit().SetPoints(row); }
    operator MarkerKit() const { return MarkerKit({1, 2, 3}); }
    operator TextKit() const
    {
        TextKit kit(Point(1, 2, 3), "text");
        kit.SetBold(true).SetSize(3, Text::SizeUnits::WorldSpace).SetBackgroundMargins({1}, {});
        return kit.SetModellingMatrix(MatrixKit().Scale(2, 2, 2)).SetColor(RGBAColor(1, 0, 0));
    }
    operator DistantLightKit() const
    {
        return DistantLightKit().SetDirection({1, 2, 3}).SetColorByIndex(2).SetCameraRelative(true);
    }
    operator MeshKit() const { return MeshKit().SetPoints(2, 2, row); }
    operator GridKit() const
    {
        GridKit kit;
        kit.SetOrigin({1, 1, 0}).SetFirstPoint({2, 1, 0}).SetSecondPoint({1, 3, 0});
        return kit.SetFirstCount(3).SetSecondCount(4);
    }
    operator NURBSSurfaceKit() const
    {
        NURBSSurfaceKit kit;
        kit.SetUDegree(1).SetVDegree(1).SetUCount(2).SetVCount(2).SetPoints(row).SetWeights({1, 2, 1, 1});
        return kit.SetUKnots({0, 0, 1, 1})
            .SetVKnots({0, 0, 1, 1})
            .SetTrims({TrimKit().SetPoints({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}})});
    }
    operator CylinderKit() const
    {
        CylinderKit kit;
        kit.SetPoints({{0, 0, 0}, {0, 0, 5}}).SetRadii({1, 2}).SetCaps(Cylinder::Capping::First);
        return kit.SetVertexRGBColorsByRange(0, {RGBColor::Red()}, CylinderKit::Component::Edges);
    }
    operator SphereKit() const
    {
        return SphereKit().SetCenter({1, 2, 3}).SetRadius(2).SetBasis({0, 0, 1}, {0, 1, 0});
    }
    operator CircleKit() const { return CircleKit().SetCenter({1, 2, 3}).SetRadius(2).SetNormal({1, 0, 0}); }
    template <class Kit> static Kit arc()
    {
        return Kit().SetStart({1, 0, 0}).SetMiddle({0, 1, 0}).SetEnd({-1, 0, 0});
    }
    operator CircularWedgeKit() const { return arc<CircularWedgeKit>(); }
    operator CircularArcKit() const { return arc<CircularArcKit>(); }
    operator EllipseKit() const
    {
        return EllipseKit().SetCenter({1, 1, 1}).SetMajor({4, 1, 1}).SetMinor({1, 2, 1});
    }
    operator NURBSCurveKit() const
    {
        NURBSCurveKit kit;
        kit.SetDegree(2).SetPoints(row).SetWeights({1, 2, 1, 1}).SetKnots({0, 0, 0, 1, 2, 2, 2});
        return kit.SetParameters(0.25f, 0.5f);
    }
    operator EllipticalArcKit() const
    {
        EllipticalArcKit kit;
        kit.SetCenter({0, 0, 0}).SetMajor({2, 0, 0}).SetMinor({0, 1, 0});
        return kit.SetStart(0).SetEnd(0.25f);
    }
    operator InfiniteLineKit() const
    {
        return InfiniteLineKit().SetFirst({1, 0, 0}).SetSecond({2, 0, 0}).SetType(InfiniteLine::Type::Ray);
    }
    operator SpotlightKit() const
    {
        SpotlightKit kit;
        kit.SetPosition({0, 0, 9}).SetTarget({1, 0, 0}).SetColor(RGBAColor(1, 1, 0)).SetConcentration(2);
        return kit.SetOuterCone(20).SetInnerCone(50, Spotlight::InnerConeUnits::Percent);
    }
    operator CuttingSectionKit() const
    {
        return CuttingSectionKit()
            .SetPlanes({{1, 0, 0, -2}})
            .SetVisualization(CuttingSection::Mode::Square, RGBAColor(0, 1, 0), 2);
    }
    operator ReferenceKit() const
    {
        return ReferenceKit()
            .SetTarget(SegmentKey(root).Subsegment("target").InsertMarker({1, 2, 3}))
            .SetModellingMatrix(MatrixKit().Translate(10, 0, 0));
    }
};

} // namespace HPS
