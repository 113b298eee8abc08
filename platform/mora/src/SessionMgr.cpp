#include <mora/SessionMgr.h>

namespace MoraCore
{

namespace
{

class PlainSession final : public ASession
{
};
class PlainManager final : public SessionMgr
{
};

SessionMgr* installed = nullptr;

} // namespace

bool IDialogs::AskFileName(std::wstring&)
{
    return false;
}

SessionMgr& SessionMgr::Instance()
{
    static PlainManager plain;
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
    static PlainSession session;
    return session;
}

std::wstring SessionMgr::MaterialLibraryDirectory()
{
    return {};
}

} // namespace MoraCore
