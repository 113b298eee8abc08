#include "message_handlers.h"

#include "host_api.h"

namespace ZelVizBase
{

namespace
{

/// `event` is of the class that the handler subscribed to.
HPS::EventHandler::HandleResult print(HPS::Event const* event, char const* prefix, MoraCore::MessageType type)
{
    auto const& message = static_cast<HPS::MessageEvent const&>(*event).message;
    std::string const text = std::string(prefix) + message.Str() + "\n";
    // Byte by byte: what the library says of itself is plain text.
    std::wstring wide;
    for (char const byte : text) wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    MoraCore::SessionMgr::Instance().CurrentSession().PrintMessage(wide, type);
    return HPS::EventHandler::HandleResult::Handled;
}

} // namespace

HPS::EventHandler::HandleResult ZELHPSErrorHandler::Handle(HPS::Event const* event)
{
    return print(event, "*** HPS error: ", MoraCore::MessageType::Error);
}

HPS::EventHandler::HandleResult ZELHPSWarningHandler::Handle(HPS::Event const* event)
{
    return print(event, "*** HPS warning: ", MoraCore::MessageType::Warning);
}

} // namespace ZelVizBase
