// The view's operators by configuration.

#include "ViewInteraction.h"
#include "ZELHighlightOperator.h"
#include "ZELPickRayOperator.h"
#include "ZELView3D.h"
#include "tagged_segments.h"

#include <stdexcept>

namespace ZelVizBase
{

void ZELView3D::InitOperators()
{
    HPS::OperatorControl stack = TheView.GetOperatorControl();
    for (auto const& [kind, config] : OpConfigurator.GetOpConfig()) {
        HPS::MouseButtons const buttons = config.GetButtons();
        HPS::ModifierKeys const modifiers = config.GetModifiers();
        HPS::OperatorPtr made;
        switch (kind) {
        case OperatorOrbit:
            made = std::make_shared<HPS::OrbitOperator>(buttons, modifiers);
            break;
        case OperatorPan:
            made = std::make_shared<HPS::PanOperator>(buttons, modifiers);
            break;
        case OperatorZoom:
            made = std::make_shared<HPS::ZoomOperator>(buttons, modifiers);
            break;
        case OperatorHighlight:
            HighlightOperator = Interaction != nullptr
                                    ? Interaction->MakeOperator(buttons, modifiers)
                                    : std::make_shared<ZELHighlightOperator>(buttons, modifiers, this);
            break; // pushed below
        case OperatorMouseWheel:
            made = std::make_shared<HPS::MouseWheelOperator>(HPS::MouseWheelOperator::ZoomType::MousePosition,
                                                             HPS::ModifierKeys::KeyControl());
            break;
        }
        if (made != nullptr) stack.Push(made, static_cast<HPS::Operator::Priority>(config.GetPriority()));
    }
    PickRayOperator = std::make_shared<ZELPickRayOperator>(this);
    ToggleHighlightOp();
}

void ZELView3D::ConfigureOperators(ZELOpConfigurator const& configurator)
{
    if (&configurator == &OpConfigurator) return;
    TheView.GetNavigationCubeControl().SetInteractivity(false);
    TheView.GetOperatorControl().UnsetEverything();
    OpConfigurator = configurator;
    InitOperators();
    enableHighlightOp();
    TheView.GetNavigationCubeControl().SetInteractivity(true);
}

ViewInteraction* ZELView3D::GetInteraction()
{
    if (Interaction == nullptr) {
        Interaction = std::make_unique<ViewInteraction>(*this);
        Interaction->SetMouseStyle(MoraCore::MouseStyles.front());
    }
    return Interaction.get();
}

ZELHighlightOperator& ZELView3D::highlightOperator() const
{
    if (HighlightOperator == nullptr)
        throw std::logic_error("HighlightOperator not being created or deleted");
    return *HighlightOperator;
}

void ZELView3D::enableHighlightOp()
{
    if (highlightOperator().IsActive()) return;
    auto const& configs = OpConfigurator.GetOpConfig();
    auto const config = configs.find(OperatorHighlight);
    Priority const priority = config != configs.end() ? config->second.GetPriority() : PriorityHigh;
    TheView.GetOperatorControl().Push(HighlightOperator, static_cast<HPS::Operator::Priority>(priority));
}

void ZELView3D::disableHighlightOp()
{
    if (highlightOperator().IsActive()) highlightOperator().DetachView();
}

void ZELView3D::ToggleHighlightOp()
{
    if (highlightOperator().IsActive())
        disableHighlightOp();
    else
        enableHighlightOp();
}

HPS::SegmentKey ZELView3D::getParentKey(HPS::Key const& key, ZELSegmentTagger::TAG_TYPE& type) const
{
    return parentOf(key, type);
}

} // namespace ZelVizBase
