#include "stream_files.h"

using namespace HPS;
using State = IONotifier::State;

namespace
{

class Notifier : public StreamFiles
{
protected:
    Notifier()
    {
        std::vector<Point> points(300'000);
        for (std::size_t i = 0; i < points.size(); ++i)
            points[i] = Point(static_cast<float>(i * 7919 % 10007), static_cast<float>(i), 0);
        for (int i = 0; i < 6; ++i) root.Subsegment("part").InsertLine(points);
    }
    // Asks until the work is done; how often it was met half-way.
    static int follow(IONotifier const& notifier)
    {
        int between = 0;
        for (float last = 0, fraction = 0; notifier.Status(fraction) == State::InProgress; last = fraction) {
            EXPECT_GE(fraction, last);
            between += fraction > 0 && fraction < 1;
        }
        return between;
    }
};

TEST_F(Notifier, WorkIsDoneStepByStep)
{
    auto const writing = Stream::File::Export(path("scene.hsf"), root, {});
    EXPECT_FALSE(std::filesystem::exists(folder / "scene.hsf"));
    EXPECT_GT(follow(writing), 0);
    EXPECT_EQ(writing.Status(), State::Completed);
    auto const reading = Stream::File::Import(path("scene.hsf"), options());
    EXPECT_TRUE(target.Subsegment("part", false).Empty());
    EXPECT_GT(follow(reading), 0);
    EXPECT_EQ(scene::firstDifference(root, target), "");
}

TEST_F(Notifier, WorkThatIsCanceledLeavesNothing)
{
    auto const writing = Stream::File::Export(path("scene.hsf"), root, {});
    writing.Status();
    writing.Cancel();
    EXPECT_EQ(writing.Status(), State::Canceled);
    EXPECT_TRUE(std::filesystem::is_empty(folder));
    write(root);
    auto const roots = Database::GetRootSegments().size();
    auto const reading = Stream::File::Import(path("scene.hsf"), options());
    reading.Status();
    EXPECT_EQ(Database::GetRootSegments().size(), roots) << "what is half-read is not to be seen";
    reading.Cancel();
    reading.Wait();
    EXPECT_EQ(reading.Status(), State::Canceled);
    EXPECT_TRUE(target.Subsegment("part", false).Empty());
}

TEST_F(Notifier, WorkThatIsLetGoIsDoneOrTellsOfItsFailure)
{
    (void)Stream::File::Export(path("scene.hsf"), root, {});
    (void)Stream::File::Import(path("scene.hsf"), options());
    EXPECT_EQ(scene::firstDifference(root, target), "");
    auto const whole = read(folder / "scene.hsf");
    std::ofstream(folder / "cut.hsf", std::ios::binary) << whole.substr(0, whole.size() / 2);
    class Listener : public EventHandler
    {
    public:
        std::string heard;
        HandleResult Handle(Event const* event) override
        {
            heard = static_cast<ErrorEvent const*>(event)->message.Str();
            return HandleResult::Handled;
        }
    } listener;
    Database::GetEventDispatcher().Subscribe(listener, Event::ClassID<ErrorEvent>());
    (void)Stream::File::Import(path("cut.hsf"), options());
    EXPECT_THAT(listener.heard, testing::HasSubstr("cut.hsf: is cut off"));
    Database::GetEventDispatcher().UnSubscribe(listener);
}

TEST_F(Notifier, ASceneThatChangesMeanwhileIsWrittenAsItIsAtTheEnd)
{
    auto const writing = Stream::File::Export(path("scene.hsf"), root, {});
    writing.Status();
    root.Subsegment("part").Delete();
    root.Subsegment("new").InsertMarker({1, 2, 3});
    writing.Wait();
    load(read(folder / "scene.hsf"));
    EXPECT_EQ(scene::firstDifference(root, target), "");
}

TEST_F(Notifier, ATargetThatGoesMeanwhileIsAFailure)
{
    write(root);
    auto const reading = Stream::File::Import(path("scene.hsf"), options());
    reading.Status();
    target.Delete();
    EXPECT_THROW(reading.Wait(), IOException);
    EXPECT_EQ(reading.Status(), State::Failed);
}

} // namespace
