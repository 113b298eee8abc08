#include "CadDocument.h"
#include "InfoText.h"
#include "Picture.h"
#include "TreeText.h"
#include "entry.h"

#include <cerrno>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <future>
#include <new>

namespace zelview
{
namespace
{

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

ExitCode codeOf(NarMetaInfra::IoOutcome outcome)
{
    using NarMetaInfra::IoOutcome;
    switch (outcome) {
    case IoOutcome::Done:
        return ExitCode::Good;
    case IoOutcome::CannotRead:
        return ExitCode::UnreadableFile;
    case IoOutcome::Damaged:
        return ExitCode::DamagedFile;
    case IoOutcome::NothingToShow:
        return ExitCode::NothingToShow;
    case IoOutcome::Cancelled:
        return ExitCode::Stopped;
    case IoOutcome::CannotWrite:
        return ExitCode::CannotWrite;
    }
    return ExitCode::DamagedFile;
}

/// A reader's cause without the file's name in quotes at its start: our line names the file already.
std::string causeWithoutName(std::string cause, std::string const& file)
{
    std::string const quoted = '"' + std::filesystem::path(file).filename().string() + '"';
    if (!cause.starts_with(quoted)) return cause;
    cause.erase(0, quoted.size());
    cause.erase(0, cause.find_first_not_of(": "));
    return cause;
}

/// Warnings of the session reach the user's console, the first of them.
class WarningLines final : public MoraCore::IMessageListener
{
public:
    explicit WarningLines(Console const& console) : Target(console) { session().RegisterListener(this); }
    WarningLines(WarningLines const&) = delete;
    WarningLines& operator=(WarningLines const&) = delete;

    ~WarningLines() override
    {
        session().UnregisterListener(this);
        if (Count > Shown) Target.warn("and " + std::to_string(Count - Shown) + " more");
    }

    void OnMessage(std::wstring const& text, MoraCore::MessageType type) override
    {
        if (type != MoraCore::MessageType::Information) add(text);
    }

    void add(std::wstring const& text)
    {
        if (++Count <= Shown) Target.warn(toUtf8(text));
    }

private:
    static constexpr std::size_t Shown = 20;
    static MoraCore::ASession& session() { return MoraCore::SessionMgr::Instance().CurrentSession(); }

    Console const& Target;
    std::size_t Count = 0;
};

class Job
{
public:
    Job(Options const& options, OutputFile const* output, Console const& console)
        : Asked(options), Output(output), Target(console), Document(&TreeView)
    {
    }

    ExitCode run()
    {
        // A read keeps one processor busy, the graphics driver's start another.
        if (drawing())
            Graphics = std::async(std::launch::async, HPS::World::PrepareGraphics, Asked.resolution.width,
                                  Asked.resolution.height);
        if (ExitCode const code = open(); code != ExitCode::Good) return code;
        bool const nothingElse = !Asked.output && !Asked.info && !Asked.exportHsf;
        if (Asked.tree || nothingElse)
            if (!print(treeText(TreeView.GetTreeBuilder()))) return ExitCode::CannotWrite;
        if (Asked.exportHsf && !Document.ExportHSF())
            return fail(ExitCode::CannotWrite, File + ".hsf", "the stream file cannot be written");
        if (drawing())
            if (ExitCode const code = makePicture(); code != ExitCode::Good) return code;
        if (Asked.info && !print(info())) return ExitCode::CannotWrite;
        return ExitCode::Good;
    }

private:
    ExitCode fail(ExitCode code, std::string const& name, std::string const& cause) const
    {
        Target.fail(name + ": " + cause);
        return code;
    }

    bool print(std::string_view bytes) const
    {
        if (Target.print(bytes)) return true;
        fail(ExitCode::CannotWrite, "standard output", std::strerror(errno));
        return false;
    }

    ExitCode open()
    {
        // A reader looks for the files beside this one by its folder.
        std::filesystem::path const path = std::filesystem::absolute(File);
        Document.Open(fromUtf8(path.native()).c_str());

        std::wstring error;
        std::vector<std::wstring> warnings;
        Document.GetErrorAndWarnings(&error, &warnings);
        NarMetaInfra::IoOutcome const outcome = Document.GetIO().GetOutcome();
        ExitCode const code = codeOf(outcome);
        if (code != ExitCode::Good)
            fail(code, File,
                 error.empty() ? "the file cannot be read" : causeWithoutName(toUtf8(error), File));
        else if (Document.IsEmpty())
            return fail(ExitCode::NothingToShow, File, "there is nothing in it to show");
        for (std::wstring const& warning : warnings) Warnings.add(warning);
        return code;
    }

    ExitCode makePicture()
    {
        auto const beforeGraphics = Clock::now();
        Graphics.wait();
        double const waited = secondsSince(beforeGraphics);
        auto drawn = drawPicture(Document.GetModel(), Asked.resolution, Asked.view);
        if (Refusal const* refusal = std::get_if<Refusal>(&drawn)) {
            if (!Asked.output) return ExitCode::Good; // the figures stand without it
            return fail(refusal->code, File, refusal->cause);
        }
        Drawn = std::move(std::get<Picture>(drawn));
        Drawn->report.startMilliseconds += 1000 * waited; // what the start took beyond the reading beside it
        auto const start = Clock::now();
        QByteArray const png = encodePng(Drawn->image);
        EncodeSeconds = secondsSince(start);
        if (!Asked.output) return ExitCode::Good;
        if (png.isEmpty()) return fail(ExitCode::CannotWrite, *Asked.output, "the picture cannot be encoded");
        std::string_view const bytes(png.constData(), static_cast<std::size_t>(png.size()));
        if (!Output) return print(bytes) ? ExitCode::Good : ExitCode::CannotWrite;
        if (std::optional<std::string> const cause = Output->write(bytes))
            return fail(ExitCode::CannotWrite, *Asked.output, *cause);
        return ExitCode::Good;
    }

    std::string info() const
    {
        Picture const* const picture = Drawn ? &*Drawn : nullptr;
        std::vector<Stage> stages = stagesOf(Document, picture, EncodeSeconds);
        return infoText(Document, {File, secondsSince(Start), picture, std::move(stages)});
    }

    bool drawing() const { return Asked.output || Asked.info; }

    Clock::time_point const Start = Clock::now();
    Options const& Asked;
    std::string const& File = Asked.files.front();
    OutputFile const* Output; ///< not owned; null: standard output
    Console const& Target;
    WarningLines Warnings{Target};
    HPS::World World;
    MoraCore::AViewTree TreeView;
    ZelCad::CadDocument Document;
    std::future<bool> Graphics; ///< only if a picture is to be drawn
    std::optional<Picture> Drawn;
    double EncodeSeconds = 0;
};

} // namespace
} // namespace zelview

zelview::ExitCode zelviewRunHeadless(zelview::Options const& options, zelview::OutputFile const* output,
                                     zelview::Console const& console)
{
    using zelview::ExitCode;
    std::string const& file = options.files.front();
    try {
        return zelview::Job(options, output, console).run();
    } catch (std::bad_alloc const&) {
        console.fail(file + ": out of memory");
        return ExitCode::Stopped;
    } catch (std::exception const& fault) {
        console.fail(file + ": " + fault.what());
        return ExitCode::DamagedFile;
    }
}
