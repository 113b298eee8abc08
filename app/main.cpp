#include "Console.h"
#include "InputFile.h"
#include "Isolation.h"
#include "Options.h"
#include "OutputFile.h"
#include "SharedLibrary.h"
#include "chosen_settings.h"
#include "headless/entry.h"
#include "option_texts.h"
#include "window/run_window.h"

#include <mora/Settings.h>

#include <cerrno>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace zelview
{
namespace
{

int codeOf(ExitCode code)
{
    return static_cast<int>(code);
}

ExitCode printText(Console const& console, std::string const& text)
{
    if (console.print(text)) return ExitCode::Good;
    console.fail(std::string("standard output: ") + std::strerror(errno));
    return ExitCode::CannotWrite;
}

/// Runs the one file through the library that does everything without a window.
ExitCode runJob(Options const& options, OutputFile const* output, Console const& console)
{
    SharedLibrary const library("libzelview_headless.so");
    auto const job = library.find<RunHeadless>(RunHeadlessName);
    if (job) return job(options, output, console);
    console.fail(library.cause());
    return ExitCode::NoGraphics;
}

ExitCode runHeadless(Options const& options, Console console)
{
    auto const refuse = [&](std::string const& name, ExitCode code, std::string const& cause) {
        console.fail(name + ": " + cause);
        return code;
    };
    std::string const& file = options.files.front();
    if (std::optional<Refusal> const refusal = checkInput(file))
        return refuse(file, refusal->code, refusal->cause);
    std::optional<OutputFile> output;
    if (options.output && *options.output != "-") {
        output.emplace(*options.output);
        if (std::optional<std::string> const cause = output->check())
            return refuse(*options.output, ExitCode::CannotWrite, *cause);
    }
    OutputFile const* const target = output ? &*output : nullptr;
    if (options.withoutIsolation) {
        console.divertLibraries(LibraryOutput::ToStandardError);
        return runJob(options, target, console);
    }
    auto const work = [&] {
        Console quiet = console;
        quiet.divertLibraries(LibraryOutput::Dropped);
        return runJob(options, target, quiet);
    };
    double const timeLimit = options.timeLimit.value_or(ZELVizCore::Settings::Current().ReadTimeLimit);
    Ending const ending = runIsolated(work, timeLimit);
    if (ending.cause.empty()) return ending.code;
    if (output) output->clearAway();
    return refuse(file, ending.code, ending.cause);
}

bool isSet(char const* variable)
{
    char const* const value = std::getenv(variable);
    return value && *value;
}

bool hasDisplay()
{
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

/// The settings of this run without a window: those that the program ships, unless a file is named, so that a
/// picture depends on nothing but the command line.
ExitCode prepareSettings(Options const& options, Console const& console)
{
    if (!options.settingsFile) {
        applySettings(options);
        return ExitCode::Good;
    }
    if (std::optional<Refusal> const refusal = checkInput(*options.settingsFile)) {
        console.fail(*options.settingsFile + ": " + refusal->cause);
        return refusal->code;
    }
    for (std::wstring const& warning : loadSettings(options, fromUtf8(*options.settingsFile)))
        console.warn(toUtf8(warning));
    return ExitCode::Good;
}

int run(std::span<char const* const> words)
{
    // Wide names are narrowed by the C library, which without a locale knows ASCII only.
    std::setlocale(LC_ALL, "C.UTF-8");
    // A closed pipe is a failed write with a cause, not a silent end.
    std::signal(SIGPIPE, SIG_IGN);

    Console const console;
    auto const parsed = parseOptions(words);
    if (std::string const* cause = std::get_if<std::string>(&parsed)) {
        console.fail(*cause);
        return codeOf(ExitCode::WrongArguments);
    }
    Options const& options = std::get<Options>(parsed);
    if (options.help) return codeOf(printText(console, helpText()));
    if (options.version) return codeOf(printText(console, "zelview " ZEL_VERSION "\n"));
    if (!options.wantsResult() && hasDisplay()) return codeOf(runWindow(options, console));
    if (options.files.size() != 1) {
        console.fail(options.files.empty() ? "no file given; see zelview --help"
                                           : "more than one file given; see zelview --help");
        return codeOf(ExitCode::WrongArguments);
    }
    ExitCode const ready = prepareSettings(options, console);
    return codeOf(ready == ExitCode::Good ? runHeadless(options, console) : ready);
}

} // namespace
} // namespace zelview

int main(int argc, char** argv)
{
    return zelview::run({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
}
