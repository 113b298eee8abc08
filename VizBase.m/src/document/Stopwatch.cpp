#include "Stopwatch.h"

#include <cwchar>
#include <iterator>

namespace ZelVizBase
{

void Stopwatch::Stop()
{
    StopTime = Clock::now();
    Accumulated += StopTime - StartTime;
}

std::wstring Stopwatch::Text(wchar_t const* format) const
{
    wchar_t buffer[512] = L"";
    int const length =
        Name ? std::swprintf(buffer, std::size(buffer), format ? format : L"Elapsed time for %s: %5.3lf(s)\n",
                             Name, Seconds())
             : std::swprintf(buffer, std::size(buffer), format ? format : L"Elapsed time: %5.3lf(s)\n",
                             Seconds());
    return length < 0 ? std::wstring() : std::wstring(buffer);
}

} // namespace ZelVizBase
