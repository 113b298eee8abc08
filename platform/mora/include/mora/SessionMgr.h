#pragma once
#include <mora/ASession.h>
#include <mora/IDialogs.h>
#include <string>

namespace MoraCore
{

/// The process-wide manager. A host may install its own; without one there is a session without a user
/// interface.
class SessionMgr
{
public:
    SessionMgr() = default;
    SessionMgr(SessionMgr const&) = delete;
    SessionMgr& operator=(SessionMgr const&) = delete;

    static SessionMgr& Instance();
    /// Makes `manager` the process-wide one; null brings back our own. We don't own it: it must be
    /// uninstalled before it goes.
    static void Install(SessionMgr* manager);

    /// Never null.
    virtual IDialogs* Dialogs();
    virtual ASession& CurrentSession();
    /// Folder of the material library; empty when there is none.
    virtual std::wstring MaterialLibraryDirectory();
    virtual ~SessionMgr() = default;
};

} // namespace MoraCore
