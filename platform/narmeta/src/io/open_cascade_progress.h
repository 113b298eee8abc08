#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "ModelReader.h"

#include <atomic>
#include <thread>

#include <Message_ProgressIndicator.hxx>

namespace NarMetaInfra
{
/// Hands the kernel's progress on to the caller of a read. The kernel counts from several threads; the caller
/// hears of it on its own thread only, in steps of at least a hundredth.
class ReadProgress : public Message_ProgressIndicator
{
public:
    explicit ReadProgress(ReadRequest const& request) : Request(request) {}

    bool isCancelled() const { return Cancelled; }
    /// For stages in which the kernel reports nothing.
    void report(double done);

protected:
    void Show(Message_ProgressScope const& scope, Standard_Boolean const isForce) override;
    Standard_Boolean UserBreak() override { return Cancelled; }

private:
    ReadRequest const& Request;
    std::thread::id const Caller = std::this_thread::get_id();
    double Last = -1.0;
    std::atomic<bool> Cancelled = false;
};
} // namespace NarMetaInfra
