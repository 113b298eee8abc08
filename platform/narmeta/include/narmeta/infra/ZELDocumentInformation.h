#pragma once

#include <string>
#include <utility>
#include <vector>

namespace NarMetaInfra
{

/// What a file says about itself: author, date, writing system, units and the like, as labelled lines.
class ZELDocumentInformation
{
public:
    using Lines = std::vector<std::pair<std::wstring, std::wstring>>;

    void Add(std::wstring label, std::wstring value)
    {
        lines_.emplace_back(std::move(label), std::move(value));
    }
    Lines const& GetLines() const { return lines_; }
    /// Appends one line "label\t\t   :value\n" for each.
    void GetAsString(std::wstring& text) const;

private:
    Lines lines_;
};

} // namespace NarMetaInfra
