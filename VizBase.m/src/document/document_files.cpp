// The road of a file into the document, and of the document into files.

#include "Stopwatch.h"
#include "ZELDocument.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>
#include <iterator>
#include <string_view>
#include <thread>

namespace ZelVizBase
{

namespace
{

/// `format` takes one int.
std::wstring line(wchar_t const* format, int number)
{
    wchar_t buffer[512] = L"";
    std::swprintf(buffer, std::size(buffer), format, number);
    return buffer;
}

int allowedProcessors(ZELVizCore::Settings const& settings)
{
    if (!settings.UseMultiProcessing) return 1;
    if (settings.NumProcessors != 0) return settings.NumProcessors;
    return std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
}

std::wstring processorsReport(bool multiProcessing, int processors)
{
    if (!multiProcessing) return line(L"\tNumber of processors used     %d.\n", 1);
    std::wstring report = line(L"\tMaximum number of processors NAR is allowed to use     %d.\n", processors);
    if (processors > 1)
        report +=
            L"\tNote: This does not guarantee that NarLink will use all the processors mentioned above.\n";
    return report;
}

} // namespace

bool ZELDocument::Open(wchar_t const* path)
{
    IO->SetUseOccurrenceData(ZELVizCore::Settings::Current().UseOccurrenceData);
    return Open2(path, nullptr);
}

bool ZELDocument::Open2(wchar_t const* path, Progress progress)
{
    Reset();
    return Import(path, progress);
}

void ZELDocument::configureReader()
{
    ZELVizCore::Settings const& settings = ZELVizCore::Settings::Current();
    GraphicalMode = settings.GraphicalMode;
    IO->RequestGraphicalMode(GraphicalMode);
    IO->SetReadPersistentNames(settings.ReadPersistentNames);
    IO->SetNumProcessors(allowedProcessors(settings));
}

bool ZELDocument::Import(wchar_t const* path, Progress progress)
{
    ZELVizCore::Settings const& settings = ZELVizCore::Settings::Current();
    configureReader();

    bool ok = doImport(path, progress);
    if (ok) GraphicalMode = IO->IsGraphicalMode(); // the reader may refuse what was requested

    std::wstring report;
    IO->GetTimerReport(report);
    if (ok) {
        OpenedModelName = path;
        Stopwatch watch;
        watch.Start();
        ok = Render(false);
        watch.Stop();
        report += watch.Text(L"\tRendering                  %f [s].\n");
    }
    report += processorsReport(settings.UseMultiProcessing, allowedProcessors(settings));
    Session().PrintMessage(report, MoraCore::MessageType::Information);
    return ok;
}

bool ZELDocument::ImportGraphical(wchar_t const*, Progress)
{
    return false;
}

bool ZELDocument::Export(wchar_t const* path, Progress progress)
{
    return doExport(path, progress);
}

bool ZELDocument::Export(wchar_t const* path, wchar_t const* other, Progress progress)
{
    return doExportAs(path, other, progress);
}

bool ZELDocument::Save(wchar_t const* path) const
{
    std::wstring_view const whole = path;
    std::wstring extension(whole.substr(whole.rfind(L'.') + 1)); // all of it without a dot
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](wchar_t c) { return static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c))); });
    if (extension == L"zel_xml") return doSaveXml(path);
    return IO && ProductStructure && IO->Write(path, ProductStructure, nullptr);
}

bool ZELDocument::Restore(wchar_t const* path)
{
    Reset();
    return doRestore(path) && Render(false);
}

bool ZELDocument::ExportHSF()
{
    HPS::UTF8 const name(OpenedModelName + L".hsf");
    HPS::Stream::ExportOptionsKit options;
    options.SetColorCompression(true, 16);
    try {
        HPS::Stream::File::Export(name, Model.GetSegmentKey(), options).Wait();
    } catch (HPS::IOException const&) {
        return false;
    }
    return true;
}

} // namespace ZelVizBase
