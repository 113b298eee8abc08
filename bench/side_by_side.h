// What the benchmarks of the scene library share: a wide model, the plain array it is compared with, and
// clocks.
#pragma once
#include "net_attributes.h"
#include <benchmark/benchmark.h>
#include <chrono>
#include <hps/hps.h>
#include <malloc.h>
#include <optional>
#include <string>
#include <vector>

namespace bench
{

template <class F> double secondsOf(F&& work)
{
    auto const start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

// Bytes in use, with the allocator's own.
inline std::size_t heapInUse()
{
    auto const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

// The database's time is the benchmark's own; the array's is taken beside it in the same turn.
class SideBySide
{
public:
    explicit SideBySide(benchmark::State& state) : state_(state) {}
    ~SideBySide()
    {
        auto const turns = static_cast<double>(state_.iterations());
        state_.counters["array_us"] = 1e6 * array_ / turns;
        state_.counters["ratio"] = database_ / array_;
    }
    template <class D, class A> void turn(D&& onDatabase, A&& onArray)
    {
        auto const seconds = secondsOf(onDatabase);
        state_.SetIterationTime(seconds);
        database_ += seconds;
        array_ += secondsOf(onArray);
    }

private:
    benchmark::State& state_;
    double database_ = 0;
    double array_ = 0;
};

inline std::string instanceName(std::size_t i)
{
    return "instance " + std::to_string(i);
}

inline HPS::MatrixKit placeOf(std::size_t i)
{
    HPS::MatrixKit matrix;
    matrix.SetElement(12, static_cast<float>(i % 100));
    matrix.SetElement(13, static_cast<float>(i / 100 % 100));
    matrix.SetElement(14, static_cast<float>(i / 10'000));
    return matrix;
}

inline HPS::RGBAColor colorOf(std::size_t i)
{
    return {static_cast<float>(i % 64) / 64, 0.5f, 1, 1};
}

// The floor: the same records with no database around them.
struct PlainInstance {
    std::string name;
    HPS::MatrixKit matrix;
    std::size_t part = 0;
    std::optional<HPS::RGBAColor> color;
};
using PlainModel = std::vector<PlainInstance>;

constexpr std::size_t partCount = 500;

inline PlainModel plainModel(std::size_t count)
{
    PlainModel model;
    for (std::size_t i = 0; i < count; ++i) model.push_back({instanceName(i), placeOf(i), i % partCount, {}});
    return model;
}

// Parts of one shell each, and instances of them side by side, each with a name, a matrix and one include.
class WideModel
{
public:
    explicit WideModel(std::size_t instanceCount)
    {
        for (std::size_t i = 0; i < partCount; ++i) {
            parts.push_back(library.Subsegment(("part " + std::to_string(i)).c_str()));
            parts.back().InsertShell({{0, 0, 0}, {1, 0, 0}, {0, 1, static_cast<float>(i)}}, {3, 0, 1, 2});
        }
        addInstances(instanceCount);
    }
    ~WideModel() { root.Delete(); }
    WideModel(WideModel const&) = delete;
    WideModel& operator=(WideModel const&) = delete;

    void addInstances(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) {
            auto instance = model.Subsegment(instanceName(i).c_str());
            instance.SetModellingMatrix(placeOf(i));
            instance.IncludeSegment(parts[i % partCount]);
            instances.push_back(instance);
        }
    }
    void colorAll()
    {
        for (std::size_t i = 0; i < instances.size(); ++i)
            instances[i].GetMaterialMappingControl().SetFaceColor(colorOf(i));
    }
    HPS::scene::SegmentRecord const& record() const
    {
        return *HPS::scene::store().resolve<HPS::scene::SegmentRecord>(model);
    }

    HPS::SegmentKey root = HPS::Database::CreateRootSegment();
    HPS::SegmentKey library = root.Subsegment("library");
    HPS::SegmentKey model = root.Subsegment("model");
    std::vector<HPS::SegmentKey> parts;
    std::vector<HPS::SegmentKey> instances;
};

} // namespace bench
