#include <QString>
#include <algorithm>
#include <cstdio>
#include <mora/ASession.h>
#include <mora/IView3DEvo.h>

namespace MoraCore
{

namespace
{

/// Standard error is byte-oriented in most programs, so the text goes out as UTF-8 whatever the locale.
void writeUtf8(std::wstring const& text)
{
    QByteArray bytes = QString::fromStdWString(text).toUtf8();
    if (!bytes.endsWith('\n')) bytes += '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}

} // namespace

void ASession::PrepareActivation()
{
    if (view_) view_->UnHighlightAll();
}

void ASession::SetInteractive(bool interactive)
{
    interactive_ = interactive;
}

void ASession::PrintMessage(std::wstring const& text, MessageType const& type)
{
    // Copies: `text` may be one of our own kept messages, and listeners may come and go while they are told.
    Message const message{text, type};
    auto const told = listeners_;
    messages_.push_back(message);
    if (messages_.size() > KeptMessages) messages_.pop_front();
    if (echo_) writeUtf8(message.text);
    for (IMessageListener* listener : told)
        if (std::ranges::find(listeners_, listener) != listeners_.end())
            listener->OnMessage(message.text, message.type);
}

void ASession::RegisterListener(IMessageListener* listener)
{
    if (listener && std::ranges::find(listeners_, listener) == listeners_.end())
        listeners_.push_back(listener);
}

void ASession::UnregisterListener(IMessageListener* listener)
{
    std::erase(listeners_, listener);
}

} // namespace MoraCore
