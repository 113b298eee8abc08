#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <mora/RenderingOptions.h>
#include <mora/SessionMgr.h>

using namespace MoraCore;
using namespace ZELVizCore;
using testing::ElementsAre;

namespace
{

class Recorder : public IMessageListener
{
public:
    explicit Recorder(ASession& session) : session_(session) {}
    void OnMessage(std::wstring const& text, MessageType type) override
    {
        texts.push_back(text);
        types.push_back(type);
        if (leaves) session_.UnregisterListener(leaves);
        if (answers && text == L"ping") session_.PrintMessage(L"pong", MessageType::Warning);
    }
    std::vector<std::wstring> texts;
    std::vector<MessageType> types;
    IMessageListener* leaves = nullptr;
    bool answers = false;

private:
    ASession& session_;
};

class Counter : public IRenderingOptionsListener
{
public:
    void Notify(IRenderingOptions* options) override { last = options, ++count; }
    IRenderingOptions* last = nullptr;
    int count = 0;
};

} // namespace

TEST(Session, MessagesReachEveryListenerOnce)
{
    ASession session;
    Recorder a(session), b(session);
    b.answers = true;
    session.RegisterListener(&a);
    session.RegisterListener(&a);
    session.RegisterListener(&b);
    session.PrintMessage(L"ping", MessageType::Error);
    EXPECT_THAT(a.texts, ElementsAre(L"ping", L"pong"));
    EXPECT_THAT(a.types, ElementsAre(MessageType{2}, MessageType{3}));
    EXPECT_EQ(b.texts.size(), 2u);
    EXPECT_EQ(session.Messages().size(), 2u);
}

TEST(Session, AListenerThatLeftMeanwhileIsNotTold)
{
    ASession session;
    Recorder a(session), b(session);
    session.RegisterListener(&a);
    session.RegisterListener(&b);
    a.leaves = &b;
    session.PrintMessage(L"x", MessageType::Information);
    EXPECT_EQ(a.texts.size(), 1u);
    EXPECT_TRUE(b.texts.empty());
}

TEST(Session, KeepsTheLastMessages)
{
    ASession session;
    for (std::size_t i = 0; i <= ASession::KeptMessages; ++i)
        session.PrintMessage(std::to_wstring(i), MessageType::Information);
    EXPECT_EQ(session.Messages().size(), ASession::KeptMessages);
    EXPECT_EQ(session.Messages().front().text, L"1");
}

TEST(Session, EchoIsUtf8WhateverTheLocale)
{
    ASession session;
    session.EchoToStandardError(true);
    testing::internal::CaptureStderr();
    session.PrintMessage(L"Gehäuse ⌀20 \U0001F527", MessageType::Information);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Gehäuse ⌀20 \U0001F527\n");
}

TEST(SessionMgr, AHostInstallsItsOwn)
{
    class Manager : public SessionMgr
    {
    public:
        ASession& CurrentSession() override { return session; }
        ASession session;
    } manager;
    SessionMgr& plain = SessionMgr::Instance();
    std::wstring name = L"kept";
    EXPECT_FALSE(plain.Dialogs()->AskFileName(name));
    EXPECT_EQ(name, L"kept");
    SessionMgr::Install(&manager);
    EXPECT_EQ(&SessionMgr::Instance().CurrentSession(), &manager.session);
    SessionMgr::Install(nullptr);
    EXPECT_EQ(&SessionMgr::Instance(), &plain);
}

TEST(RenderingOptions, AChangeTellsTheListeners)
{
    RenderingOptions options;
    Counter counter;
    options.RegisterListener(&counter);
    options.RegisterListener(&counter);
    options.SetDisplayPMI(options.GetDisplayPMI());
    EXPECT_EQ(counter.count, 0) << "no change";
    options.SetDisplayPMI(!options.GetDisplayPMI());
    options.SetHighlightColor({1, 2, 3, 4});
    EXPECT_EQ(counter.count, 2);
    EXPECT_EQ(counter.last, &options);
    options.UnregisterListener(&counter);
    options.SetDisplayAxes(!options.GetDisplayAxes());
    EXPECT_EQ(counter.count, 2);
}

TEST(RenderingOptions, AssignmentTakesValuesAndNoListeners)
{
    RenderingOptions shown, edited;
    Counter counter;
    shown.RegisterListener(&counter);
    edited.SetDisplayEdges(false);
    edited.SetDefaultFaceColor({9, 8, 7, 6});
    shown = edited;
    EXPECT_EQ(counter.count, 0);
    EXPECT_FALSE(shown.GetDisplayEdges());
    EXPECT_EQ(shown.GetDefaultFaceColor(), (RGBAColor{9, 8, 7, 6}));
    RenderingOptions copy(shown);
    copy.SetDisplayEdges(true);
    EXPECT_EQ(counter.count, 0);
    shown.SetDisplayEdges(true);
    EXPECT_EQ(counter.count, 1);
}
