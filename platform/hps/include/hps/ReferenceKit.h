#pragma once
#include <hps/GeometryKit.h>
#include <hps/MatrixKit.h>

namespace HPS
{

struct ReferenceData {
    KeyIndex target;
    std::optional<MatrixKit> modellingMatrix;

    bool operator==(ReferenceData const&) const = default;
    static constexpr auto fields()
    {
        return std::tuple{&ReferenceData::target, &ReferenceData::modellingMatrix};
    }
};

template <class Self> class ReferenceOperations : public GeometryOperations<Self>
{
public:
    using Data = ReferenceData;

    Self& SetTarget(Key const& target)
    {
        return detail::setField<&Data::target>(this->self(), target.Index());
    }
    // An empty key once the target is gone.
    bool ShowTarget(Key& target) const
    {
        KeyIndex index;
        if (!detail::showField<&Data::target>(this->self(), index)) return false;
        target = Key(index);
        return true;
    }
    // From the coordinates of the target to those of the segment.
    Self& SetModellingMatrix(MatrixKit const& matrix)
    {
        return detail::setField<&Data::modellingMatrix>(this->self(), std::optional(matrix));
    }
    Self& UnsetModellingMatrix()
    {
        return detail::setField<&Data::modellingMatrix>(this->self(), std::optional<MatrixKit>());
    }
    bool ShowModellingMatrix(MatrixKit& matrix) const
    {
        std::optional<MatrixKit> value;
        if (!detail::showField<&Data::modellingMatrix>(this->self(), value) || !value) return false;
        matrix = *value;
        return true;
    }
};

// Shows a geometry of another place as if it stood here as well.
class ReferenceKit : public GeometryKitOf<ReferenceKit, ReferenceData>,
                     public ReferenceOperations<ReferenceKit>
{
public:
};

} // namespace HPS
