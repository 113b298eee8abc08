// Bytes of heap that the scene database takes for each thing made, the allocator's own bytes included, beside
// those of a plain array. Every row is measured in a process of its own, so that no row finds memory that
// another has left.
#include "side_by_side.h"
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

using namespace bench;
using namespace HPS;

namespace
{

constexpr std::size_t million = 1'000'000;

// make() keeps what it makes until the process ends.
template <class F> void row(char const* name, std::size_t count, F&& make)
{
    std::fflush(stdout);
    if (auto const child = fork(); child > 0) {
        waitpid(child, nullptr, 0);
        return;
    }
    auto const before = heapInUse();
    make();
    std::printf("%-58s %8.1f\n", name, double(heapInUse() - before) / double(count));
    std::fflush(stdout);
    _exit(0);
}

template <class F> void fill(std::size_t count, F&& each)
{
    auto owner = Database::CreateRootSegment();
    for (std::size_t i = 0; i < count; ++i) each(owner, i);
}

// A net of n x n squares.
ShellKit net(int n)
{
    std::vector<Point> points;
    std::vector<int> faces;
    for (int y = 0; y <= n; ++y)
        for (int x = 0; x <= n; ++x) points.emplace_back(x, y, 0);
    for (int y = 0; y < n; ++y)
        for (int x = 0; x < n; ++x) {
            auto const at = y * (n + 1) + x;
            faces.insert(faces.end(), {3, at, at + 1, at + n + 2, 3, at, at + n + 2, at + n + 1});
        }
    ShellKit kit;
    kit.SetPoints(points).SetFacelist(faces);
    return kit;
}

} // namespace

int main()
{
    // A first segment of everything: what the library sets up once does not count.
    auto target = Database::CreateRootSegment();
    target.Subsegment("one").SetModellingMatrix(placeOf(1)).IncludeSegment(target.Subsegment("two"));

    std::puts("bytes for each");
    row("array: name, matrix, part, colour", million, [] { new PlainModel(plainModel(million)); });
    row("segment without a name", million,
        [] { fill(million, [](auto& owner, auto) { owner.Subsegment(""); }); });
    row("segment with a name", million,
        [] { fill(million, [](auto& owner, auto i) { owner.Subsegment(instanceName(i).c_str()); }); });
    row("segment with a matrix", million, [] {
        fill(million, [](auto& owner, auto i) { owner.Subsegment("").SetModellingMatrix(placeOf(i)); });
    });
    row("segment with an include", million,
        [&] { fill(million, [&](auto& owner, auto) { owner.Subsegment("").IncludeSegment(target); }); });
    row("segment with a colour", million, [] {
        fill(million, [](auto& owner, auto i) {
            owner.Subsegment("").GetMaterialMappingControl().SetFaceColor(colorOf(i));
        });
    });
    row("segment with a name, a matrix and an include", million, [&] {
        fill(million, [&](auto& owner, auto i) {
            owner.Subsegment(instanceName(i).c_str()).SetModellingMatrix(placeOf(i)).IncludeSegment(target);
        });
    });
    row("the same, read by a consumer of changes", million, [&] {
        auto* const cursor = new scene::ChangeCursor;
        std::vector<scene::ChangeMark> marks;
        cursor->read(marks);
        fill(million, [&](auto& owner, auto i) {
            owner.Subsegment(instanceName(i).c_str()).SetModellingMatrix(placeOf(i)).IncludeSegment(target);
            if (i % 1000 == 999) cursor->read(marks);
        });
    });
    row("include", million, [&] { fill(million, [&](auto& owner, auto) { owner.IncludeSegment(target); }); });
    row("triangle of one shell of half a million", 2 * 500 * 500, [&] { target.InsertShell(net(500)); });
    row("triangle of shells of two", 200'000,
        [&] { fill(100'000, [&](auto& owner, auto) { owner.InsertShell(net(1)); }); });
}
