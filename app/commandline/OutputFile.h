#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zelview
{

/// A file that appears whole or not at all: written under a temporary name beside it, then renamed.
/// A device or a pipe is written in place.
class OutputFile
{
public:
    /// Touches nothing yet. The temporary name is fixed here, so that a parent can clear away what its child
    /// left.
    explicit OutputFile(std::filesystem::path const& target);

    /// The cause why writing is bound to fail, or nothing; asked before long work is done in vain.
    std::optional<std::string> check() const;

    /// The cause of a failure, after which no trace of the attempt is left.
    std::optional<std::string> write(std::string_view bytes) const;

    /// Removes the temporary file of a writer that was ended in the middle.
    void clearAway() const;

private:
    bool inPlace() const;

    std::filesystem::path Target;
    std::filesystem::path Temporary;
};

} // namespace zelview
