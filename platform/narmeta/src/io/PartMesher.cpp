#include "PartMesher.h"

#include "open_cascade_guard.h"

#include <chrono>

#include <Message_ProgressIndicator.hxx>
#include <Message_ProgressScope.hxx>
#include <TopExp_Explorer.hxx>

namespace NarMetaInfra
{
namespace
{
// How long the owner waits at most until it hears of a cancel.
constexpr std::chrono::milliseconds Patience(30);

/// Tells a job on another thread that it shall end.
class StopSign : public Message_ProgressIndicator
{
public:
    explicit StopSign(std::atomic<bool> const& isStopped) : IsStopped(isStopped) {}

protected:
    void Show(Message_ProgressScope const&, Standard_Boolean const) override {}
    Standard_Boolean UserBreak() override { return IsStopped; }

private:
    std::atomic<bool> const& IsStopped;
};
} // namespace

PartMesher::PartMesher(unsigned threads, TessellationFineness const& fineness) : Fineness(fineness)
{
    for (unsigned i = 1; i < threads; ++i) Workers.emplace_back([this] { work(); });
}

PartMesher::~PartMesher()
{
    {
        std::lock_guard const lock(Mutex);
        IsStopped = true;
    }
    Changed.notify_all();
    for (auto& worker : Workers) worker.join();
}

bool PartMesher::claim(TopoDS_Shape const& shape)
{
    std::unordered_set<TopoDS_TShape const*> own;
    for (auto const kind : {TopAbs_FACE, TopAbs_EDGE})
        for (TopExp_Explorer explorer(shape, kind); explorer.More(); explorer.Next())
            own.insert(explorer.Current().TShape().get());
    for (auto const* const one : own)
        if (Claimed.contains(one)) return false;
    Claimed.merge(own);
    return true;
}

void PartMesher::add(TopoDS_Shape const& shape)
{
    if (shape.IsNull() || !shape.Location().IsIdentity() || Jobs.contains(shape.TShape().get())) return;
    if (!claim(shape)) return;
    auto job = std::make_unique<Job>();
    job->shape = shape;
    {
        std::lock_guard const lock(Mutex);
        Queue.push_back(job.get());
    }
    Changed.notify_one();
    Jobs.emplace(shape.TShape().get(), std::move(job));
}

void PartMesher::run(Job& job, bool parallelFaces, Message_ProgressRange const& range)
{
    job.outcome.failure = guarded([&] {
        job.outcome.tolerance = toleranceFor(job.shape, Fineness);
        tessellate(job.shape, job.outcome.tolerance, parallelFaces, range);
    });
}

void PartMesher::work()
{
    Handle(StopSign) const sign = new StopSign(IsStopped);
    std::unique_lock lock(Mutex);
    for (;;) {
        Changed.wait(lock, [&] { return IsStopped || !Queue.empty(); });
        if (IsStopped) return;
        help(lock, sign->Start());
    }
}

// Runs the first job of the queue, which must not be empty.
void PartMesher::help(std::unique_lock<std::mutex>& lock, Message_ProgressRange const& range)
{
    auto& job = *Queue.front();
    Queue.pop_front();
    job.state = State::Running;
    ++RunningCount;
    lock.unlock();
    run(job, false, range);
    lock.lock();
    job.state = State::Done;
    --RunningCount;
    Changed.notify_all();
}

PartMesher::Outcome PartMesher::take(TopoDS_Shape const& shape, Message_ProgressRange const& range)
{
    Message_ProgressScope scope(range, "mesh", 1);
    Handle(StopSign) const sign = new StopSign(IsStopped);
    auto const found = Jobs.find(shape.TShape().get());
    auto* const job = found != Jobs.end() && shape.Location().IsIdentity() ? found->second.get() : nullptr;
    std::unique_lock lock(Mutex);
    // What shares faces with another shape waits until nobody else is at work.
    auto const isReady = [&] {
        return job ? job->state != State::Running : Queue.empty() && RunningCount == 0;
    };
    while (!isReady()) {
        if (scope.UserBreak()) {
            IsStopped = true;
            return {};
        }
        if (!Queue.empty())
            help(lock, sign->Start());
        else
            Changed.wait_for(lock, Patience, isReady);
        lock.unlock();
        scope.Show(); // the progress, and with it the wish to stop
        lock.lock();
    }
    if (job && job->state == State::Done) return std::move(job->outcome);
    if (job) std::erase(Queue, job);
    bool const hasIdleThreads = Queue.size() + RunningCount < Workers.size();
    Job own{shape, State::Running, {}};
    if (job) job->state = State::Running;
    lock.unlock();
    run(own, hasIdleThreads, scope.Next());
    lock.lock();
    if (job) job->state = State::Done;
    return std::move(own.outcome);
}
} // namespace NarMetaInfra
