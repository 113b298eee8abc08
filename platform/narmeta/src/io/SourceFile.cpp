#include "SourceFile.h"

#include "ReaderRegistry.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <fstream>

namespace NarMetaInfra
{

std::string LowerExtension(std::wstring const& path)
{
    auto const name = path.substr(path.find_last_of(L"/\\") + 1);
    auto const dot = name.rfind(L'.');
    std::string extension;
    for (std::size_t i = dot == std::wstring::npos ? name.size() : dot + 1; i < name.size(); ++i) {
        if (name[i] > L'~') return {};
        extension += static_cast<char>(name[i] >= L'A' && name[i] <= L'Z' ? name[i] - L'A' + L'a' : name[i]);
    }
    return extension;
}

std::wstring Quoted(std::wstring const& path)
{
    auto const end = path.find_last_not_of(L'/');
    auto const start = path.find_last_of(L'/', end);
    auto const name = end == std::wstring::npos ? path : path.substr(start + 1, end - start);
    return L"\"" + name + L"\"";
}

SourceFile SourceFile::Open(wchar_t const* path)
{
    SourceFile file;
    file.quoted = Quoted(path);
    file.extension = LowerExtension(path);
    auto const refuse = [&file](std::wstring const& cause) -> SourceFile& {
        file.error = file.quoted + cause;
        return file;
    };
    auto const name = QString::fromWCharArray(path);
    if (name.isEmpty()) return refuse(L" is no file name");
    file.path = std::filesystem::path(QFile::encodeName(QDir::cleanPath(name)).toStdString());

    // The kind is asked before opening: opening a pipe would wait for its other end.
    std::error_code error;
    auto const status = std::filesystem::status(file.path, error);
    if (status.type() == std::filesystem::file_type::not_found) return refuse(L" does not exist");
    if (error)
        return refuse(L" cannot be reached: " + QString::fromStdString(error.message()).toStdWString());
    if (std::filesystem::is_directory(status)) return refuse(L" is a folder");
    if (!std::filesystem::is_regular_file(status)) return refuse(L" is not a regular file");

    QFile device(QDir::cleanPath(name));
    if (!device.open(QIODevice::ReadOnly))
        return refuse(L" cannot be opened: " + device.errorString().toStdWString());
    file.size = static_cast<std::uintmax_t>(device.size());
    auto const head = device.read(ReaderRegistry::HeadSize);
    if (head.isEmpty() && file.size > 0)
        return refuse(L" cannot be read: " + device.errorString().toStdWString());
    file.head = head.toStdString();
    return file;
}

std::wstring ReadWholeFile(std::filesystem::path const& path, std::string& bytes)
{
    std::error_code error;
    auto const size = std::filesystem::file_size(path, error);
    std::ifstream stream(path, std::ios::binary);
    if (error || !stream) return L"the file can't be read";
    bytes.assign(size, '\0');
    if (!stream.read(bytes.data(), static_cast<std::streamsize>(size)))
        return L"the file got shorter while it was read";
    return {};
}

std::wstring ReplaceFile(std::wstring const& path, std::string const& text)
{
    QSaveFile file(QString::fromStdWString(path));
    if (file.open(QIODevice::WriteOnly) && file.write(text.data(), static_cast<qint64>(text.size())) >= 0 &&
        file.commit())
        return {};
    return Quoted(path) + L" cannot be written: " + file.errorString().toStdWString();
}

} // namespace NarMetaInfra
