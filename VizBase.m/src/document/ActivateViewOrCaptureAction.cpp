#include "ActivateViewOrCaptureAction.h"

#include "action_session.h"

namespace ZelVizBase
{

using MoraCore::MessageType;

namespace
{

constexpr wchar_t const* failed = L"Failed to activate requested View/Capture";

} // namespace

bool ActivateViewOrCaptureAction::operator()(ZELVizCore::RenderId const& id)
{
    if (id.Origin != ZELVizCore::RenderId::OriginEnum::Visualisation) return false;
    MoraCore::ASession& session = MoraCore::SessionMgr::Instance().CurrentSession();
    MoraCore::IDocumentEvo& document = documentOf(session);
    try {
        session.PrepareActivation();
        bool const activated = document.ActivateViewOrCapture(id);
        if (activated)
            session.PrintMessage(L"The requested View/Capture been activated", MessageType::Information);
        else
            session.PrintMessage(failed, MessageType::Error);
        return activated;
    } catch (...) {
        session.PrintMessage(failed, MessageType::Error);
        throw;
    }
}

} // namespace ZelVizBase
