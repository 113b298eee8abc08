#include "caller_fault.h"
#include <algorithm>
#include <mora/View3DFactory.h>

namespace MoraCore
{

ACamera* ACameraFactory::MakeCamera(IView3DEvo* view, std::string_view name) const
{
    auto const prototype = std::ranges::find(prototypes_, name, [](auto const& p) { return p->GetName(); });
    return prototype == prototypes_.end() ? nullptr : (*prototype)->cloneTo(view);
}

ACamera* ACameraFactory::MakeCamera(ACamera const& from, std::string_view name) const
{
    ACamera* camera = MakeCamera(from.GetView(), name);
    if (camera) camera->copySettingsFrom(from);
    return camera;
}

View3DFactory& View3DFactory::Instance()
{
    // Never destroyed: at the end of the program the library that holds the prototypes' code may be gone
    // before us.
    static auto& factory = *new View3DFactory;
    return factory;
}

void View3DFactory::RegisterCameraDefinition(ACamera* prototype)
{
    if (!prototype) return callerFault("View3DFactory::RegisterCameraDefinition", "null prototype");
    auto& known = cameras_.prototypes_;
    std::erase_if(known, [name = std::string_view(prototype->GetName())](auto const& p) {
        return name == p->GetName();
    });
    known.emplace_back(prototype);
}

void View3DFactory::ClearCameraDefinitions()
{
    cameras_.prototypes_.clear();
}

} // namespace MoraCore
