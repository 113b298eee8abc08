#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace NarMetaInfra
{

/// What can be said of a file before it is known what it holds.
struct SourceFile {
    std::filesystem::path path;
    /// The file's name in double quotes, for messages.
    std::wstring quoted;
    std::string extension;
    std::uintmax_t size = 0;
    /// The first bytes, up to ReaderRegistry::HeadSize.
    std::string head;
    /// One line for the user if it cannot be read; empty otherwise.
    std::wstring error;

    static SourceFile Open(wchar_t const* path);
};

/// In lower case, without the dot; empty without one or if it is not plain ASCII.
std::string LowerExtension(std::wstring const& path);
/// The last part of the path in double quotes.
std::wstring Quoted(std::wstring const& path);

/// Fills @p bytes with a file. Gives the cause if that fails, as when the file gets shorter meanwhile, empty
/// otherwise.
std::wstring ReadWholeFile(std::filesystem::path const& path, std::string& bytes);

/// Writes the text beside @p path and moves it there, so that a file is never half new. Gives the cause if
/// that fails, empty otherwise.
std::wstring ReplaceFile(std::wstring const& path, std::string const& text);

} // namespace NarMetaInfra
