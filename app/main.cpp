#include "Console.h"
#include "InputFile.h"
#include "Isolation.h"
#include "Job.h"
#include "Options.h"
#include "OutputFile.h"

#include <cerrno>
#include <clocale>
#include <csignal>
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

ExitCode show(Options const& options, Console console)
{
    auto const refuse = [&](std::string const& name, ExitCode code, std::string const& cause) {
        console.fail(name + ": " + cause);
        return code;
    };
    if (std::optional<Refusal> const refusal = checkInput(options.file))
        return refuse(options.file, refusal->code, refusal->cause);
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
    Ending const ending = runIsolated(work, options.timeLimit);
    if (ending.cause.empty()) return ending.code;
    if (output) output->clearAway();
    return refuse(options.file, ending.code, ending.cause);
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
    return codeOf(show(options, console));
}

} // namespace
} // namespace zelview

int main(int argc, char** argv)
{
    return zelview::run({argv + 1, static_cast<std::size_t>(argc > 0 ? argc - 1 : 0)});
}
