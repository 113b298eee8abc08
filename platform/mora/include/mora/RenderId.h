#pragma once
#include <compare>
#include <cstddef>
#include <vector>

namespace ZELVizCore
{

/// Path of a node in a host's tree: which world the values belong to, then one value per level, root first.
class RenderId
{
public:
    /// Who made an id and can read it.
    enum class OriginEnum : int {
        None = 0,
        Host = 1,
        Visualisation = 2, ///< plug-ins that show a model
    };

    OriginEnum Origin = OriginEnum::None;

    RenderId() = default;
    RenderId(std::vector<unsigned long long> const& values, OriginEnum const& origin);

    int Length() const { return static_cast<int>(values_.size()); }
    /// `index` from 0 to Length() - 1; anything else is the caller's fault.
    unsigned long long operator[](int index) const;
    unsigned long long& operator[](int index);

    void AddValue(unsigned long long value) { values_.push_back(value); }
    /// Cuts the path, or lengthens it by zeros; a negative length gives an empty path.
    void SetLength(int length);

    friend std::strong_ordering operator<=>(RenderId const&, RenderId const&) = default;

private:
    std::vector<unsigned long long> values_;
};

} // namespace ZELVizCore
