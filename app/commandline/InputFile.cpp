#include "InputFile.h"

#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

#include <QStringDecoder>

namespace zelview
{

std::optional<Refusal> checkInput(std::string const& path)
{
    QStringDecoder decode(QStringDecoder::Utf8);
    QString const decoded = decode(QByteArrayView(path));
    if (decode.hasError()) return Refusal{ExitCode::UnreadableFile, "its name is not UTF-8"};

    struct stat status {
    };
    if (::stat(path.c_str(), &status) != 0) return Refusal{ExitCode::UnreadableFile, std::strerror(errno)};
    if (S_ISDIR(status.st_mode)) return Refusal{ExitCode::UnreadableFile, std::strerror(EISDIR)};
    if (!S_ISREG(status.st_mode)) return Refusal{ExitCode::UnreadableFile, "not a regular file"};
    if (::access(path.c_str(), R_OK) != 0) return Refusal{ExitCode::UnreadableFile, std::strerror(errno)};
    if (status.st_size == 0) return Refusal{ExitCode::DamagedFile, "the file is empty"};
    return std::nullopt;
}

} // namespace zelview
