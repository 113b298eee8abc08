#include "MaterialTable.h"
#include "Instance.h"
#include <atomic>
#include <string_view>

namespace HPS::render
{
namespace
{

std::uint64_t nextVersion()
{
    static std::atomic<std::uint64_t> versions{0};
    return ++versions;
}

// A row has no gaps, so that its bytes stand for it.
std::size_t hashOf(MaterialRow const& row)
{
    return std::hash<std::string_view>()({reinterpret_cast<char const*>(&row), sizeof row});
}

} // namespace

void MaterialTable::clear()
{
    rows_.assign(1, MaterialRow{});
    byHash_.clear();
    byHash_.emplace(hashOf(rows_.front()), 0);
    version_ = nextVersion();
}

std::uint32_t MaterialTable::intern(MaterialRow const& material)
{
    std::size_t const hash = hashOf(material);
    auto const [first, last] = byHash_.equal_range(hash);
    for (auto found = first; found != last; ++found)
        if (rows_[found->second] == material) return found->second;
    if (rows_.size() == materialRowLimit) return 0;
    auto const row = std::uint32_t(rows_.size());
    rows_.push_back(material);
    byHash_.emplace(hash, row);
    version_ = nextVersion();
    return row;
}

} // namespace HPS::render
