#include <algorithm>
#include <mora/RenderingOptions.h>
#include <mora/Settings.h>

namespace ZELVizCore
{

RenderingOptions::RenderingOptions(RenderingOptions const& other)
    : IRenderingOptions(), values_(other.values_)
{
}

RenderingOptions& RenderingOptions::operator=(RenderingOptions const& other)
{
    values_ = other.values_;
    return *this;
}

RenderingOptions* RenderingOptions::CreateDefault()
{
    Settings const& settings = Settings::Default();
    auto* options = new RenderingOptions;
    options->SetDefaultBodyColor(settings.BodyColor);
    options->SetDefaultFaceColor(settings.BodyColor);
    options->SetDefaultEdgeColor(settings.EdgeColor);
    options->SetDefaultTessEdgeColor(settings.TessEdgeColor);
    options->SetDefaultVertexColor(settings.VertexColor);
    options->SetHighlightColor(settings.HighlightColor);
    return options;
}

void RenderingOptions::RegisterListener(IRenderingOptionsListener* listener)
{
    if (listener && std::ranges::find(listeners_, listener) == listeners_.end())
        listeners_.push_back(listener);
}

void RenderingOptions::UnregisterListener(IRenderingOptionsListener* listener)
{
    std::erase(listeners_, listener);
}

void RenderingOptions::notifyListeners()
{
    // A listener may register or unregister while it is told.
    auto const told = listeners_;
    for (IRenderingOptionsListener* listener : told)
        if (std::ranges::find(listeners_, listener) != listeners_.end()) listener->Notify(this);
}

} // namespace ZELVizCore
