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
    std::string bytes;
    for (wchar_t const unit : text) {
        auto c = static_cast<unsigned long>(unit);
        if (c > 0x10ffff || (c >= 0xd800 && c < 0xe000)) c = 0xfffd;
        if (c < 0x80) {
            bytes += static_cast<char>(c);
            continue;
        }
        int const tail = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
        unsigned const lead = tail == 1 ? 0xc0 : tail == 2 ? 0xe0 : 0xf0;
        bytes += static_cast<char>(lead | (c >> (6 * tail)));
        for (int i = tail - 1; i >= 0; --i) bytes += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3f));
    }
    if (bytes.empty() || bytes.back() != '\n') bytes += '\n';
    std::fwrite(bytes.data(), 1, bytes.size(), stderr);
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
