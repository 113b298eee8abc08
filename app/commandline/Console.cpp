#include "Console.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <QString>

namespace zelview
{
namespace
{

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        ssize_t const written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

} // namespace

void Console::divertLibraries(LibraryOutput where)
{
    int const result = ::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3);
    int const message = ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3);
    if (result < 0 || message < 0) return;
    Result = result;
    Message = message;
    if (where == LibraryOutput::Dropped) {
        int const nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        if (nowhere < 0) return;
        ::dup2(nowhere, STDERR_FILENO);
        ::close(nowhere);
    }
    ::dup2(STDERR_FILENO, STDOUT_FILENO);
}

bool Console::print(std::string_view bytes) const
{
    return writeAll(Result, bytes);
}

void Console::fail(std::string_view cause) const
{
    writeAll(Message, "zelview: " + oneLine(cause) + "\n");
}

void Console::warn(std::string_view cause) const
{
    writeAll(Message, "zelview: warning: " + oneLine(cause) + "\n");
}

std::string oneLine(std::string_view text)
{
    std::string line;
    for (char const c : text) {
        bool const control = static_cast<unsigned char>(c) < 0x20 || c == 0x7f;
        if (!control) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    while (line.ends_with(' ')) line.pop_back();
    return line;
}

std::string toUtf8(std::wstring_view text)
{
    return QString::fromWCharArray(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

std::wstring fromUtf8(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toStdWString();
}

} // namespace zelview
