#pragma once

#include <narmeta/pmi/PMIAnnotationView.h>

namespace NarMetaPmi
{

/// What lies on the side of a plane that its normal points to is cut away. Coordinates of the model.
struct PMIClippingPlane {
    std::array<double, 3> point{};
    std::array<double, 3> normal{0, 0, 1};

    bool operator==(PMIClippingPlane const&) const = default;
};

/// A stored state of the display.
class PMICapture : public PMIActivatable
{
public:
    using PMIActivatable::PMIActivatable;

    void SetCamera(std::optional<PMICamera> camera) { camera_ = camera; }
    std::optional<PMICamera> const& GetCamera() const { return camera_; }

    /// Annotations that are shown.
    void SetAnnotationIds(std::vector<NarMeta::Id> ids) { annotations_ = std::move(ids); }
    std::vector<NarMeta::Id> const& GetAnnotationIds() const { return annotations_; }
    /// PIDs of the references that are shown; empty for all of them.
    void SetVisibleReferences(std::vector<std::wstring> pids) { visible_ = std::move(pids); }
    std::vector<std::wstring> const& GetVisibleReferences() const { return visible_; }
    void SetClippingPlanes(std::vector<PMIClippingPlane> planes) { planes_ = std::move(planes); }
    std::vector<PMIClippingPlane> const& GetClippingPlanes() const { return planes_; }

private:
    std::optional<PMICamera> camera_;
    std::vector<NarMeta::Id> annotations_;
    std::vector<std::wstring> visible_;
    std::vector<PMIClippingPlane> planes_;
};

} // namespace NarMetaPmi
