#pragma once

#include <narmeta/pmi/PMIAnnotationView.h>

namespace NarMetaPmi
{

/// A stored state of the display.
class PMICapture : public PMIActivatable
{
public:
    using PMIActivatable::PMIActivatable;

    void SetCamera(std::optional<PMICamera> camera) { camera_ = camera; }
    std::optional<PMICamera> const& GetCamera() const { return camera_; }

private:
    std::optional<PMICamera> camera_;
};

} // namespace NarMetaPmi
