#pragma once

#include <string>
#include <string_view>

namespace zelview
{

enum class LibraryOutput { Dropped, ToStandardError };

/// The program's two streams to its user. Libraries in the process print where they like; once diverted,
/// nothing of theirs gets between our results, so that a picture on standard output stays whole.
class Console
{
public:
    /// Diverts what libraries print to standard output and standard error; our own words still arrive.
    void divertLibraries(LibraryOutput where);

    /// Writes all bytes to standard output. False with errno set if they could not all be written.
    [[nodiscard]] bool print(std::string_view bytes) const;

    /// One line "zelview: cause" on standard error.
    void fail(std::string_view cause) const;

    /// One line "zelview: warning: cause" on standard error.
    void warn(std::string_view cause) const;

private:
    int Result = 1;
    int Message = 2;
};

/// `text` on one line: control characters become blanks, runs of them one, none at the ends.
std::string oneLine(std::string_view text);

/// Wide text as UTF-8; what is no character becomes a question mark.
std::string toUtf8(std::wstring_view text);

/// UTF-8 as wide text; bytes that are no UTF-8 become U+FFFD.
std::wstring fromUtf8(std::string_view text);

} // namespace zelview
