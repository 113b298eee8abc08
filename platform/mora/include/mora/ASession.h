#pragma once
#include <deque>
#include <mora/MessageType.h>
#include <string>
#include <vector>

namespace MoraCore
{

class IDocumentEvo;
class IView3DEvo;

/// Is told of each message to the user.
class IMessageListener
{
public:
    virtual ~IMessageListener() = default;
    virtual void OnMessage(std::wstring const& text, MessageType type) = 0;
};

/// One user's work: the document and the view in front, and the stream of messages. A host derives from it or
/// uses it as it is. It owns nothing.
class ASession
{
public:
    struct Message {
        std::wstring text;
        MessageType type;
    };
    /// So many of the last messages are kept.
    static constexpr std::size_t KeptMessages = 1000;

    ASession() = default;
    ASession(ASession const&) = delete;
    ASession& operator=(ASession const&) = delete;

    /// Called before a view or capture of the model is activated, which rebuilds the tree: takes the
    /// highlight off.
    virtual void PrepareActivation();
    /// False while the document is being replaced and must not be worked on, true afterwards.
    virtual void SetInteractive(bool interactive);
    virtual ~ASession() = default;

    bool IsInteractive() const { return interactive_; }

    /// Null when there is none.
    IDocumentEvo* DocumentEvo() const { return document_; }
    void SetDocumentEvo(IDocumentEvo* document) { document_ = document; }
    IView3DEvo* View3DEvo() const { return view_; }
    void SetView3DEvo(IView3DEvo* view) { view_ = view; }

    /// Keeps the message, writes it to standard error if asked for, and passes it to the listeners in the
    /// order of their registration. A listener may print, register or unregister meanwhile.
    void PrintMessage(std::wstring const& text, MessageType const& type);
    /// We don't own listeners. A second registration of the same one changes nothing.
    void RegisterListener(IMessageListener* listener);
    void UnregisterListener(IMessageListener* listener);

    std::deque<Message> const& Messages() const { return messages_; }
    void ClearMessages() { messages_.clear(); }
    void EchoToStandardError(bool echo) { echo_ = echo; }

private:
    IDocumentEvo* document_ = nullptr;
    IView3DEvo* view_ = nullptr;
    std::deque<Message> messages_;
    std::vector<IMessageListener*> listeners_;
    bool interactive_ = true;
    bool echo_ = false;
};

} // namespace MoraCore
