#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "open_cascade_tessellation.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <TopoDS_TShape.hxx>

namespace NarMetaInfra
{
/// Triangulates shapes on threads of its own while its owner goes on, and on the owner's thread when that
/// waits. What comes out does not depend on the number of threads. One thread owns it and calls everything.
class PartMesher
{
public:
    struct Outcome {
        TessellationTolerance tolerance;
        std::optional<std::string> failure; ///< in one line
    };

    /// @p threads: that may work at a time, the owner's among them; at least 1.
    PartMesher(unsigned threads, TessellationFineness const& fineness);
    /// Ends what still runs.
    ~PartMesher();
    PartMesher(PartMesher const&) = delete;
    PartMesher& operator=(PartMesher const&) = delete;

    unsigned threads() const { return static_cast<unsigned>(Workers.size()) + 1; }
    /// Begins with a shape as soon as a thread is free. It must not change from now on. A shape that shares a
    /// face or an edge with an earlier one waits for take(), since both would write to what they share.
    void add(TopoDS_Shape const& shape);
    /// Waits until the shape is done; one that was not added before is done now.
    Outcome take(TopoDS_Shape const& shape, Message_ProgressRange const& range);

private:
    enum class State { Waiting, Running, Done };
    struct Job {
        TopoDS_Shape shape;
        State state = State::Waiting;
        Outcome outcome;
    };

    void work();
    void run(Job& job, bool parallelFaces, Message_ProgressRange const& range);
    void help(std::unique_lock<std::mutex>& lock, Message_ProgressRange const& range);
    bool claim(TopoDS_Shape const& shape);

    TessellationFineness const Fineness;
    std::mutex Mutex; // of the jobs' states and the queue
    std::condition_variable Changed;
    std::deque<Job*> Queue;
    unsigned RunningCount = 0;
    std::atomic<bool> IsStopped = false;
    std::unordered_map<TopoDS_TShape const*, std::unique_ptr<Job>> Jobs;
    std::unordered_set<TopoDS_TShape const*> Claimed; // faces and edges
    std::vector<std::thread> Workers;
};
} // namespace NarMetaInfra
