#include "MakePartFromReferenceMenuAction.h"

#include "action_session.h"

namespace ZelVizBase
{

using MoraCore::MessageType;

namespace
{

constexpr wchar_t const* failed = L"Failed to convert requested reference into a Part Document";

} // namespace

bool MakePartFromReferenceMenuAction::operator()(ZELVizCore::RenderId const& id)
{
    if (id.Origin != ZELVizCore::RenderId::OriginEnum::Visualisation) return false;
    MoraCore::ASession& session = MoraCore::SessionMgr::Instance().CurrentSession();
    NotInteractive const quiet(session);
    MoraCore::IDocumentEvo& document = documentOf(session);
    try {
        bool const made = document.MakePartModelFromReference(lastValueOf(id));
        if (made)
            session.PrintMessage(L"The requested reference has been converted into a Part Document",
                                 MessageType::Information);
        else
            session.PrintMessage(failed, MessageType::Error);
        return made;
    } catch (...) {
        session.PrintMessage(failed, MessageType::Error);
        throw;
    }
}

} // namespace ZelVizBase
