#include "support.h"
#include <functional>
#include <hps/InputEvent.h>
#include <limits>

using namespace HPS;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{

struct Listener : EventHandler {
    std::function<void(Event const&)> onEvent = [](Event const&) {};
    int heard = 0;
    HandleResult Handle(Event const* event) override
    {
        ++heard;
        onEvent(*event);
        return HandleResult::Handled;
    }
};

auto const errorClass = ErrorEvent().GetClassID();

TEST(Events, ReachThoseWhoAskedForTheirClass)
{
    EventDispatcher dispatcher;
    Listener errors, keys;
    dispatcher.Subscribe(errors, errorClass);
    dispatcher.Subscribe(errors, errorClass); // the same again
    dispatcher.Subscribe(keys, KeyboardEvent().GetClassID());
    EXPECT_TRUE(dispatcher.InjectEvent(ErrorEvent("x")));
    EXPECT_FALSE(dispatcher.InjectEvent(WarningEvent("x")));
    EXPECT_EQ(errors.heard, 1);
    EXPECT_EQ(keys.heard, 0);
    dispatcher.UnSubscribe(errors, WarningEvent().GetClassID());
    dispatcher.InjectEvent(ErrorEvent("x"));
    EXPECT_EQ(errors.heard, 2);
    dispatcher.UnSubscribe(errors);
    EXPECT_FALSE(dispatcher.InjectEvent(ErrorEvent("x")));
}

TEST(Events, AHandlerMayUnsubscribeOthersAndGoAwayInItsCall)
{
    EventDispatcher dispatcher;
    Listener first, last;
    auto second = std::make_unique<Listener>();
    for (auto* listener : {&first, second.get(), &last}) dispatcher.Subscribe(*listener, errorClass);
    Listener late;
    first.onEvent = [&](Event const&) {
        second.reset();
        dispatcher.UnSubscribe(first);
        for (int i = 0; i < 100; ++i) dispatcher.Subscribe(late, errorClass);
    };
    dispatcher.InjectEvent(ErrorEvent("x"));
    EXPECT_EQ(last.heard, 1);
    EXPECT_EQ(late.heard, 0) << "who comes during an event waits for the next one";
    dispatcher.InjectEvent(ErrorEvent("x"));
    EXPECT_EQ(first.heard, 1);
    EXPECT_EQ(last.heard, 2);
    EXPECT_EQ(late.heard, 1);
}

TEST(Events, AHandlerThatThrowsKeepsNothingFromTheOthers)
{
    EventDispatcher dispatcher;
    Listener first, last;
    dispatcher.Subscribe(first, errorClass);
    dispatcher.Subscribe(last, errorClass);
    first.onEvent = [](Event const&) { throw std::runtime_error("first"); };
    last.onEvent = [](Event const&) { throw std::runtime_error("last"); };
    EXPECT_THROW(
        {
            try {
                dispatcher.InjectEvent(ErrorEvent("x"));
            } catch (std::runtime_error const& error) {
                EXPECT_STREQ(error.what(), "first");
                throw;
            }
        },
        std::runtime_error);
    EXPECT_EQ(last.heard, 1);
    dispatcher.UnSubscribe(first);
    last.onEvent = [](Event const&) {};
    EXPECT_TRUE(dispatcher.InjectEvent(ErrorEvent("x")));
}

TEST(Events, MayBeInjectedWithinAHandler)
{
    EventDispatcher dispatcher;
    Listener listener;
    dispatcher.Subscribe(listener, errorClass);
    listener.onEvent = [&](Event const&) {
        if (listener.heard >= 3) return;
        dispatcher.InjectEvent(ErrorEvent("again"));
        dispatcher.UnSubscribe(listener);
    };
    dispatcher.InjectEvent(ErrorEvent("x"));
    EXPECT_EQ(listener.heard, 3);
    EXPECT_FALSE(dispatcher.InjectEvent(ErrorEvent("x")));
}

TEST(Events, ACopiedHandlerIsSubscribedToNothing)
{
    EventDispatcher dispatcher;
    auto original = std::make_unique<Listener>();
    dispatcher.Subscribe(*original, errorClass);
    Listener const copy(*original);
    original.reset();
    EXPECT_FALSE(dispatcher.InjectEvent(ErrorEvent("x")));
    EXPECT_EQ(copy.heard, 0);
}

class Faults : public Scene
{
protected:
    Listener listener;
    std::vector<std::string> messages;
    Faults()
    {
        listener.onEvent = [this](Event const& event) {
            messages.push_back(static_cast<ErrorEvent const&>(event).message.Str());
        };
        Database::GetEventDispatcher().Subscribe(listener, errorClass);
    }
};

TEST_F(Faults, AreToldWithTheirCause)
{
    auto a = root.Subsegment("a"), b = a.Subsegment("b"), c = root.Subsegment("c");
    c.Subsegment("b");
    float const none = std::numeric_limits<float>::quiet_NaN();
    b.IncludeSegment(root);
    c.SetName("a");
    a.MoveTo(b);
    b.MoveTo(c);
    a.SetModellingMatrix(MatrixKit().SetElement(5, none));
    a.InsertMarker({none, 0, 0});
    EXPECT_THAT(messages, ElementsAre(HasSubstr("Include refused"), HasSubstr("\"a\" already"),
                                      HasSubstr("below itself"), HasSubstr("of its name"),
                                      HasSubstr("Modelling matrix refused"), HasSubstr("Geometry refused")));
    EXPECT_EQ(root.GetSubsegmentCount(), 2u);
}

TEST_F(Faults, AreNoCauseToFailForThoseWhoAskedForTheOperation)
{
    listener.onEvent = [](Event const&) { throw std::runtime_error("no"); };
    EXPECT_NO_THROW(root.InsertMarker({std::numeric_limits<float>::infinity(), 0, 0}));
    EXPECT_EQ(listener.heard, 1);
}

TEST(ModifierKeys, MatchByEitherKeyOfAKind)
{
    ModifierKeys held;
    EXPECT_TRUE(held.Matches({}));
    held.Shift(true);
    EXPECT_TRUE(held.Matches(ModifierKeys::KeyShift()));
    EXPECT_TRUE(held.Matches(ModifierKeys::KeyLeftShift()));
    EXPECT_FALSE(held.Matches({}));
    EXPECT_FALSE(ModifierKeys::KeyRightShift().Matches(ModifierKeys::KeyLeftShift()));
    EXPECT_FALSE(held.Control(true).Matches(ModifierKeys::KeyShift()));
    EXPECT_TRUE(held.Shift(false) == ModifierKeys::KeyControl());
}

} // namespace
