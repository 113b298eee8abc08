// Pictures that are made beside the caller: what the caller notices of it, and what not.

#include "Presenter.h"

#include <hps/Factory.h>
#include <hps/WindowKey.h>
#include <hps/hps.h>

#include <condition_variable>
#include <deque>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

using namespace HPS;

namespace
{

/// An event loop that turns when the test says so, and the pictures that reached its window.
struct Loop {
    std::mutex mutex;
    std::condition_variable filled;
    std::deque<std::function<void()>> due;
    std::vector<Picture> shown;
    bool seen = true;

    void add(std::function<void()> next)
    {
        std::lock_guard const lock(mutex);
        due.push_back(std::move(next));
        filled.notify_one();
    }

    /// Runs what is due, and what comes of it, until `pictures` were shown in all.
    void turn(std::size_t pictures)
    {
        while (shown.size() < pictures) {
            std::unique_lock lock(mutex);
            if (!filled.wait_for(lock, std::chrono::seconds(20), [this] { return !due.empty(); })) return;
            auto const next = std::move(due.front());
            due.pop_front();
            lock.unlock();
            next();
        }
    }
};

Loop* loop = nullptr;

class LoopPresenter final : public Presenter
{
public:
    bool showSize(int& width, int& height) const override
    {
        width = height = 32;
        return true;
    }
    void present(Picture const& picture) override { loop->shown.push_back(picture); }
    bool isSeen() const override { return loop->seen; }
    bool callsBack() const override { return true; }
    void callBack(std::function<void()> next) override { loop->add(std::move(next)); }
    void whenIdle(std::function<void()> next) override { loop->add(std::move(next)); }
};

class Beside : public testing::Test
{
protected:
    Beside()
    {
        loop = &TheLoop;
        Former = setPresenterMaker(
            [](WindowHandle) -> std::unique_ptr<Presenter> { return std::make_unique<LoopPresenter>(); });
        TheCanvas = Factory::CreateCanvas(WindowHandle(1), "beside");
        TheCanvas.AttachViewAsLayout(TheView);
    }
    ~Beside() override
    {
        TheCanvas.Delete();
        TheView.Delete();
        setPresenterMaker(Former);
        loop = nullptr;
    }

    void colour(RGBAColor const& colour)
    {
        TheCanvas.GetWindowKey().GetMaterialMappingControl().SetWindowColor(colour);
    }
    static RGBAColor middle(Picture const& picture)
    {
        auto const* const pixel = &picture.pixels[4 * (16 * 32 + 16)];
        return {pixel[0] / 255.0F, pixel[1] / 255.0F, pixel[2] / 255.0F};
    }

    Loop TheLoop;
    PresenterMaker Former = nullptr;
    View TheView = Factory::CreateView("view");
    Canvas TheCanvas;
};

RGBAColor const Red(1, 0, 0), Green(0, 1, 0);

TEST_F(Beside, manyUpdatesGiveOnePictureOfTheLastState)
{
    colour(Red);
    EXPECT_TRUE(TheCanvas.Update());
    EXPECT_TRUE(TheLoop.shown.empty()) << "the caller goes on";
    EXPECT_TRUE(TheCanvas.Update(Window::UpdateType::Complete));
    colour(Green);
    EXPECT_TRUE(TheCanvas.Update());
    TheLoop.turn(1);
    ASSERT_EQ(TheLoop.shown.size(), 1U);
    EXPECT_EQ(middle(TheLoop.shown.front()), Green);
    EXPECT_TRUE(TheLoop.due.empty()) << "nothing is left to do";
}

TEST_F(Beside, whoeverAsksForItHasItAtOnce)
{
    colour(Red);
    TheCanvas.Update();
    Picture picture;
    ASSERT_TRUE(TheCanvas.ReadPixels(picture));
    EXPECT_EQ(middle(picture), Red);
    EXPECT_EQ(TheLoop.shown.size(), 1U);
    colour(Green);
    EXPECT_TRUE(TheCanvas.UpdateWithNotifier().Wait());
    ASSERT_EQ(TheLoop.shown.size(), 2U);
    EXPECT_EQ(middle(TheLoop.shown.back()), Green);
    UpdateReport report;
    ASSERT_TRUE(TheCanvas.ShowUpdateReport(report));
    EXPECT_GT(report.drawMilliseconds, 0);
}

TEST_F(Beside, aChangeWaitsForThePictureThatIsBeingMade)
{
    colour(Red);
    TheCanvas.Update();
    for (int round = 1; round <= 50; ++round) {
        // The loop begins the picture; the change meets it at any stage.
        std::unique_lock lock(TheLoop.mutex);
        auto const next = std::move(TheLoop.due.front());
        TheLoop.due.pop_front();
        lock.unlock();
        next();
        colour(round % 2 ? Green : Red);
        TheCanvas.Update();
        TheLoop.turn(static_cast<std::size_t>(round));
        ASSERT_EQ(middle(TheLoop.shown.back()), round % 2 ? Red : Green) << round;
    }
}

TEST_F(Beside, aCanvasMayGoWhileItsPictureIsMade)
{
    Canvas other = Factory::CreateCanvas(WindowHandle(2), "other");
    other.AttachViewAsLayout(TheView);
    for (Canvas const* canvas : {&TheCanvas, &other}) canvas->Update();
    auto const next = std::move(TheLoop.due.front());
    TheLoop.due.pop_front();
    next(); // the first one's picture is under way, the other's is wanted
    TheCanvas.Delete();
    TheLoop.turn(1);
    EXPECT_EQ(TheLoop.shown.size(), 1U) << "the other one's";
    other.Delete();
}

TEST_F(Beside, whoeverWaitsForTheThreadGetsItsTurn)
{
    std::array<Canvas, 3> others;
    for (Canvas& other : others) {
        other = Factory::CreateCanvas(WindowHandle(2), "other");
        other.AttachViewAsLayout(TheView);
        other.Update();
    }
    TheCanvas.Update();
    // All four are begun while the first is under way, so that three wait; one of these goes, and one has its
    // picture made by somebody who cannot wait.
    for (int i = 0; i < 4; ++i) {
        std::unique_lock lock(TheLoop.mutex);
        auto const next = std::move(TheLoop.due.front());
        TheLoop.due.pop_front();
        lock.unlock();
        next();
    }
    others[1].Delete();
    Picture picture;
    EXPECT_TRUE(others[2].ReadPixels(picture));
    TheLoop.turn(3);
    EXPECT_EQ(TheLoop.shown.size(), 3U) << "the first, the one in a hurry, and the last";
    for (Canvas& other : others) other.Delete();
}

TEST_F(Beside, aWindowThatIsNotSeenHasNoPictureMade)
{
    TheLoop.seen = false;
    TheCanvas.Update();
    auto const next = std::move(TheLoop.due.front());
    TheLoop.due.pop_front();
    next();
    EXPECT_TRUE(TheLoop.due.empty());
    TheLoop.seen = true;
    TheCanvas.Update(Window::UpdateType::Refresh);
    TheLoop.turn(1);
    EXPECT_EQ(TheLoop.shown.size(), 1U);
}

class Listener final : public EventHandler
{
public:
    HandleResult Handle(Event const*) override
    {
        Threads.push_back(std::this_thread::get_id());
        return HandleResult::Handled;
    }
    std::vector<std::thread::id> Threads;
};

TEST_F(Beside, warningsAreToldOnTheCallersThread)
{
    Listener listener;
    Database::GetEventDispatcher().Subscribe(listener, Event::ClassID<WarningEvent>());
    PortfolioKey portfolio = Database::CreatePortfolio();
    ImageKit image;
    image.SetSize(2, 2).SetFormat(Image::Format::RGBA).SetData(ByteArray(3)); // too few bytes
    portfolio.DefineTexture("broken", portfolio.DefineImage("broken", image),
                            TextureOptionsKit::GetDefault());
    SegmentKey segment = TheView.GetSegmentKey().Subsegment("body", true);
    segment.GetPortfolioControl().Push(portfolio);
    segment.GetMaterialMappingControl().SetFaceMaterial(MaterialKit().SetDiffuseTexture("broken"));
    std::array const corners{Point(-1, -1, 0), Point(1, -1, 0), Point(0, 1, 0)};
    std::array const facelist{3, 0, 1, 2};
    segment.InsertShell(corners.size(), corners.data(), facelist.size(), facelist.data());
    TheCanvas.Update();
    TheLoop.turn(1);
    ASSERT_FALSE(listener.Threads.empty());
    for (auto const thread : listener.Threads) EXPECT_EQ(thread, std::this_thread::get_id());
}

} // namespace
