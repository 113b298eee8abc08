// Planes that the user drags through the model.

#include "ZELView3D.h"

namespace ZelVizBase
{

namespace
{

constexpr char const* cuttingOperatorName = "HPS_CuttingSectionOperator";
constexpr auto priority = HPS::Operator::Priority::Default;

} // namespace

void ZELView3D::OnOperatorCuttingPlaneX()
{
    startCutting(Axis::X);
}

void ZELView3D::OnOperatorCuttingPlaneY()
{
    startCutting(Axis::Y);
}

void ZELView3D::OnOperatorCuttingPlaneZ()
{
    startCutting(Axis::Z);
}

std::vector<HPS::Plane>& ZELView3D::planesOf(Axis axis)
{
    return axis == Axis::X ? PlanesX : axis == Axis::Y ? PlanesY : PlanesZ;
}

void ZELView3D::startCutting(Axis axis)
{
    handleCuttingPlaneOperator();
    setOneCuttingPlane(planesOf(axis));
    CuttingOn = true;
    CuttingAxis = axis;
    updateThis(HPS::Window::UpdateType::Default);
}

void ZELView3D::handleCuttingPlaneOperator()
{
    if (!CuttingOn || CuttingAxis == Axis::None) return;
    HPS::OperatorControl stack = TheView.GetOperatorControl();
    HPS::OperatorPtr top;
    if (!stack.ShowTop(top, priority) || top->GetName() != cuttingOperatorName) return;
    auto& cutting = static_cast<HPS::CuttingSectionOperator&>(*top);
    planesOf(CuttingAxis) = cutting.GetPlanes();
    cutting.SetIndicatorVisibility(true);
    stack.Pop(priority);
    CuttingOn = false;
    CuttingAxis = Axis::None;
}

void ZELView3D::setOneCuttingPlane(std::vector<HPS::Plane> const& planes)
{
    HPS::OperatorControl stack = TheView.GetOperatorControl();
    stack.Pop(priority);
    stack.Push(std::make_shared<HPS::OrbitOperator>(HPS::MouseButtons::ButtonRight()), priority);
    auto const cutting = std::make_shared<HPS::CuttingSectionOperator>(HPS::MouseButtons::ButtonLeft());
    stack.Push(cutting, priority);
    cutting->SetPlanes(planes);
    cutting->SetSectioning(true);
    if (!ModelAttached) return;
    HPS::SegmentKey model = TheView.GetAttachedModel().GetSegmentKey();
    model.GetVisibilityControl().SetCutFaces(false).SetCutEdges(false);
}

void ZELView3D::OnModeCutCaps()
{
    if (!ModelAttached) return;
    HPS::SegmentKey model = TheView.GetAttachedModel().GetSegmentKey();
    HPS::VisibilityKit kit;
    bool faces = true;
    model.ShowVisibility(kit);
    kit.ShowCutFaces(faces);
    model.GetVisibilityControl().SetCutFaces(!faces).SetCutEdges(!faces);
    updateThis(HPS::Window::UpdateType::Default);
}

} // namespace ZelVizBase
