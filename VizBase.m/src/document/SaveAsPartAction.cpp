#include "SaveAsPartAction.h"

#include "action_session.h"

namespace ZelVizBase
{

using MoraCore::MessageType;

bool SaveAsPartAction::operator()(ZELVizCore::RenderId const& id)
{
    if (id.Origin != ZELVizCore::RenderId::OriginEnum::Visualisation) return false;
    MoraCore::SessionMgr& manager = MoraCore::SessionMgr::Instance();
    MoraCore::ASession& session = manager.CurrentSession();
    NotInteractive const quiet(session);
    MoraCore::IDocumentEvo& document = documentOf(session);
    try {
        unsigned long long const node = lastValueOf(id);
        std::wstring name;
        document.MakeFileNameFromReference(node, name);
        if (name.empty() && !manager.Dialogs()->AskFileName(name)) return false;
        bool const saved = document.ExportReferenceAsPart(node, name.c_str());
        if (saved)
            session.PrintMessage(L"The requested reference has been saved/exported to a Part Document",
                                 MessageType::Information);
        else
            session.PrintMessage(L"Failed to save/expport requested reference into a Part Document",
                                 MessageType::Error);
        return saved;
    } catch (...) {
        session.PrintMessage(L"Failed to save/exportrequested reference into a Part Document",
                             MessageType::Error);
        throw;
    }
}

} // namespace ZelVizBase
