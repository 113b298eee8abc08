#pragma once

#include "host_api.h"

#include <stdexcept>

namespace ZelVizBase
{

/// What the entries of menus work on. Throws std::runtime_error if there is none.
inline MoraCore::IDocumentEvo& documentOf(MoraCore::ASession& session)
{
    if (session.DocumentEvo() == nullptr) throw std::runtime_error("No document present");
    return *session.DocumentEvo();
}

/// The number of the node itself; 0 for an empty id.
inline unsigned long long lastValueOf(ZELVizCore::RenderId const& id)
{
    return id.Length() > 0 ? id[id.Length() - 1] : 0;
}

/// The session is not to be worked on while this lives.
class NotInteractive
{
public:
    explicit NotInteractive(MoraCore::ASession& session) : Session(session) { Session.SetInteractive(false); }
    ~NotInteractive() { Session.SetInteractive(true); }
    NotInteractive(NotInteractive const&) = delete;
    NotInteractive& operator=(NotInteractive const&) = delete;

private:
    MoraCore::ASession& Session;
};

} // namespace ZelVizBase
