#include "open_cascade_progress.h"

#include <algorithm>

namespace NarMetaInfra
{
void ReadProgress::report(double done)
{
    if (Cancelled || std::this_thread::get_id() != Caller) return;
    Last = std::clamp(done, std::max(Last, 0.0), 1.0);
    if (Request.Report(Last)) Cancelled = true;
}

void ReadProgress::Show(Message_ProgressScope const&, Standard_Boolean const isForced)
{
    constexpr double Step = 0.01;
    if (auto const done = GetPosition(); isForced || done >= Last + Step) report(done);
}
} // namespace NarMetaInfra
