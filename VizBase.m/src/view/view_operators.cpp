// The view's operators by configuration.

#include "ZELView3D.h"

namespace ZelVizBase
{

void ZELView3D::InitOperators()
{
    auto const make = [](ZELOperator kind, HPS::MouseButtons buttons,
                         HPS::ModifierKeys modifiers) -> HPS::OperatorPtr {
        switch (kind) {
        case OperatorOrbit:
            return std::make_shared<HPS::OrbitOperator>(buttons, modifiers);
        case OperatorPan:
            return std::make_shared<HPS::PanOperator>(buttons, modifiers);
        case OperatorZoom:
            return std::make_shared<HPS::ZoomOperator>(buttons, modifiers);
        case OperatorMouseWheel:
            return std::make_shared<HPS::MouseWheelOperator>(HPS::MouseWheelOperator::ZoomType::MousePosition,
                                                             HPS::ModifierKeys::KeyControl());
        case OperatorHighlight:
            break;
        }
        return nullptr;
    };
    HPS::OperatorControl stack = TheView.GetOperatorControl();
    for (auto const& [kind, config] : OpConfigurator.GetOpConfig())
        if (auto const made = make(kind, config.GetButtons(), config.GetModifiers()))
            stack.Push(made, static_cast<HPS::Operator::Priority>(config.GetPriority()));
}

void ZELView3D::ConfigureOperators(ZELOpConfigurator const& configurator)
{
    if (&configurator == &OpConfigurator) return;
    TheView.GetNavigationCubeControl().SetInteractivity(false);
    TheView.GetOperatorControl().UnsetEverything();
    OpConfigurator = configurator;
    InitOperators();
    TheView.GetNavigationCubeControl().SetInteractivity(true);
}

} // namespace ZelVizBase
