#include "InfoText.h"

#include "Console.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>

#include <sys/resource.h>

namespace zelview
{
namespace
{

constexpr int LabelWidth = 16;

template <class... Values> std::string format(char const* pattern, Values... values)
{
    char text[256];
    std::snprintf(text, sizeof text, pattern, values...);
    return text;
}

std::string line(std::string const& label, std::string const& value)
{
    return format("%-*s: ", LabelWidth, label.c_str()) + oneLine(value) + "\n";
}

std::size_t countOccurrences(NarMetaInfra::ZELProductStructure const& structure)
{
    std::size_t occurrences = 0;
    for (auto const& reference : structure.GetReferences())
        if (reference->IsPart()) occurrences += structure.GetOccurrencesCount(*reference);
    return occurrences;
}

double peakMegabytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

} // namespace

std::vector<Stage> stagesOf(ZelCad::CadDocument const& document, Picture const* picture, double encodeSeconds)
{
    std::vector<Stage> stages;
    for (NarMetaInfra::StageTiming const& timing : document.GetIO().GetTimings()) {
        std::string name = toUtf8(timing.name);
        std::ranges::transform(name, name.begin(), [](unsigned char c) { return std::tolower(c); });
        stages.push_back({std::move(name), timing.seconds.count(), timing.inKernel});
    }
    auto const add = [&](char const* name, double seconds) { stages.push_back({name, seconds, false}); };
    add("scene", document.GetSceneTime().count());
    add("tree", document.GetTreeTime().count());
    if (!picture) return stages;
    HPS::UpdateReport const& report = picture->report;
    add("graphics start", report.startMilliseconds / 1000);
    add("fitting", picture->fitSeconds);
    add("compile", (report.compileMilliseconds - report.uploadMilliseconds) / 1000);
    add("upload", report.uploadMilliseconds / 1000);
    add("draw", report.drawMilliseconds / 1000);
    add("readback", report.readMilliseconds / 1000);
    add("encode", encodeSeconds);
    return stages;
}

std::string infoText(ZelCad::CadDocument const& document, JobFigures const& figures)
{
    NarMetaInfra::ZELProductStructure const& structure = *document.GetProductStructure();
    NarMetaInfra::BrepCounts const counts = structure.GetCounts();
    unsigned long long parts = 0;
    unsigned long long bodies = 0;
    document.GetContentCounts(parts, bodies);
    std::error_code error;

    std::string text = line("file", figures.file);
    text += line("file size", format("%ju bytes", std::filesystem::file_size(figures.file, error)));
    text += line("product", toUtf8(structure.GetProductName()));
    text += line("kind", document.GetIO().IsGraphicalMode() ? "meshes" : "bodies");
    std::pair<char const*, std::size_t> const rows[] = {
        {"parts", parts},
        {"assemblies", structure.GetSubAssemblyReferences().size()},
        {"occurrences", countOccurrences(structure)},
        {"bodies", bodies},
        {"faces", counts.faces},
        {"edges", counts.edges},
        {"vertices", counts.vertices},
        {"triangles", counts.triangles},
    };
    for (auto const& [label, count] : rows) text += line(label, std::to_string(count));
    if (figures.picture) {
        HPS::Vector const extent = figures.picture->box.max - figures.picture->box.min;
        text += line("extent", format("%g x %g x %g", extent.x, extent.y, extent.z));
        HPS::UpdateReport const& report = figures.picture->report;
        text += line("drawn triangles", std::to_string(report.triangles));
        text += line("draw calls", std::to_string(report.drawCalls));
    }
    double kernel = 0;
    for (Stage const& stage : figures.stages) {
        text += line(stage.name, format("%.1f ms", stage.seconds * 1000));
        if (stage.inKernel) kernel += stage.seconds;
    }
    double const own = std::max(0.0, figures.totalSeconds - kernel);
    text += line("total", format("%.1f ms", figures.totalSeconds * 1000));
    text += line("own work", format("%.1f %%", 100 * own / figures.totalSeconds));
    return text + line("peak memory", format("%.0f MB", peakMegabytes()));
}

} // namespace zelview
