#include <mora/SessionMgr.h>

namespace MoraCore
{

namespace
{

SessionMgr* installed = nullptr;

} // namespace

bool IDialogs::AskFileName(std::wstring&)
{
    return false;
}

SessionMgr& SessionMgr::Instance()
{
    static SessionMgr plain;
    return installed ? *installed : plain;
}

void SessionMgr::Install(SessionMgr* manager)
{
    installed = manager;
}

IDialogs* SessionMgr::Dialogs()
{
    static IDialogs nobody;
    return &nobody;
}

ASession& SessionMgr::CurrentSession()
{
    static ASession session;
    return session;
}

std::wstring SessionMgr::MaterialLibraryDirectory()
{
    return {};
}

} // namespace MoraCore
