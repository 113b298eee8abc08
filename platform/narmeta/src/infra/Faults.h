#pragma once

#include <map>
#include <string>
#include <vector>

namespace NarMetaInfra
{

/// Counts faults of each kind, so that a file with a million of them gives one line.
class Faults
{
public:
    void Add(std::wstring const& kind, std::wstring const& example)
    {
        auto& entry = kinds_[kind];
        if (entry.count++ == 0) entry.example = example;
    }
    void AppendTo(std::vector<std::wstring>& warnings) const
    {
        for (auto const& [kind, entry] : kinds_) {
            auto line = kind + L": \"" + entry.example + L"\"";
            if (entry.count > 1) line += L" and " + std::to_wstring(entry.count - 1) + L" more";
            warnings.push_back(std::move(line));
        }
    }

private:
    struct Entry {
        std::size_t count = 0;
        std::wstring example;
    };
    std::map<std::wstring, Entry> kinds_;
};

} // namespace NarMetaInfra
