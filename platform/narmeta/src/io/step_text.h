#pragma once

#include "text_encoding.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace NarMetaInfra
{
/// What a look at the characters of a Part 21 file says before the kernel parses it.
struct StepTextReport {
    /// Why the file must not be parsed, in one line for the user.
    std::optional<std::string> refusal;
    std::size_t entityCount = 0;
    /// Entities that others refer to and the file does not define. What only people, organisations, dates and
    /// approvals refer to does not count: nothing that is shown depends on it.
    std::size_t danglingCount = 0;
    std::size_t duplicateCount = 0;
    /// Encoding of the strings outside ASCII.
    TextEncoding encoding = TextEncoding::Utf8;
};

/// One pass over the text, strings and comments skipped. Refused are: text that is no exchange structure, one
/// that ends early, one without data, and the nesting construct of the first edition, which the kernel's
/// parser does not survive.
StepTextReport checkStepText(std::string_view text);

/// Reads a file into @p text and checks it; a file that can't be read is refused too.
StepTextReport checkStepFile(std::filesystem::path const& file, std::string& text);
} // namespace NarMetaInfra
