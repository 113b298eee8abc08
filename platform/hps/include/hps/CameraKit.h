#pragma once
#include <hps/Kit.h>
#include <hps/Point.h>
#include <hps/enumerations.h>

namespace HPS
{

// Where the scene is seen from.
struct CameraData {
    std::optional<Point> position;
    std::optional<Point> target;
    std::optional<Vector> upVector;
    std::optional<std::tuple<Camera::Projection, float, float>> projection;
    std::optional<std::tuple<float, float>> field;
    std::optional<float> nearLimit;

    bool operator==(CameraData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{
            Aspect{1, "Position", &CameraData::position}, Aspect{2, "Target", &CameraData::target},
            Aspect{3, "UpVector", &CameraData::upVector}, Aspect{4, "Projection", &CameraData::projection},
            Aspect{5, "Field", &CameraData::field},       Aspect{6, "NearLimit", &CameraData::nearLimit}};
    }
};
static_assert(CompleteKit<CameraData>);

template <class Self> class CameraOperations : public Operations<Self>
{
public:
    using Data = CameraData;

    HPS_ASPECT(Position, Point, position)
    HPS_ASPECT(Target, Point, target)
    HPS_ASPECT(UpVector, Vector, upVector)
    // Skews in degrees.
    Self& SetProjection(Camera::Projection type, float obliqueYSkew = 0, float obliqueXSkew = 0)
    {
        return detail::set<&Data::projection>(this->self(), std::tuple{type, obliqueYSkew, obliqueXSkew});
    }
    Self& UnsetProjection() { return detail::unset<&Data::projection>(this->self()); }
    bool ShowProjection(Camera::Projection& type, float& obliqueYSkew, float& obliqueXSkew) const
    {
        return detail::show<&Data::projection>(this->self(), type, obliqueYSkew, obliqueXSkew);
    }
    bool ShowProjection(Camera::Projection& type) const
    {
        float y = 0, x = 0;
        return ShowProjection(type, y, x);
    }
    // Extent of what is seen, in world units at the target.
    Self& SetField(float width, float height)
    {
        return detail::set<&Data::field>(this->self(), std::tuple{width, height});
    }
    Self& UnsetField() { return detail::unset<&Data::field>(this->self()); }
    bool ShowField(float& width, float& height) const
    {
        return detail::show<&Data::field>(this->self(), width, height);
    }
    // Distance of the near plane as a share of the distance from position to target; 0 leaves it to the
    // renderer.
    HPS_ASPECT(NearLimit, float, nearLimit)
};

class CameraKit : public Kit<CameraKit, CameraOperations>
{
public:
    static CameraKit GetDefault();
};

class CameraControl : public Control<CameraControl, CameraOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
