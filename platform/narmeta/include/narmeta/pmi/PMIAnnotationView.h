#pragma once

#include <narmeta/pmi/PMIAnnotation.h>

#include <array>
#include <memory>
#include <optional>

namespace NarMetaPmi
{

/// Where a view looks from, in the coordinates of its model; lengths in model units.
struct PMICamera {
    std::array<double, 3> position{};
    std::array<double, 3> direction{0, 0, -1};
    std::array<double, 3> up{0, 1, 0};
    /// Size of the field at the target; 0 if the file does not say.
    double width = 0;
    double height = 0;
    bool perspective = false;

    bool operator==(PMICamera const&) const = default;
};

/// A view of the model with the annotations that it shows.
class PMIAnnotationView : public PMIActivatable
{
public:
    using PMIActivatable::PMIActivatable;

    /// Plain contents, filled by a reader.
    struct Members {
        std::vector<std::shared_ptr<PMINote>> notes;
        std::vector<std::shared_ptr<PMIDatum>> datums;
        std::vector<std::shared_ptr<PMIDatumTarget>> datumTargets;
        std::vector<std::shared_ptr<PMIGDT>> tolerances;
        std::vector<std::shared_ptr<PMIDimension>> dimensions;
        std::vector<std::shared_ptr<PMIRoughness>> roughnesses;
    };
    Members& Content() { return members_; }
    Members const& Content() const { return members_; }

    std::vector<std::shared_ptr<PMINote>> const& GetNotes() const { return members_.notes; }
    std::vector<std::shared_ptr<PMIDatum>> const& GetDatums() const { return members_.datums; }
    std::vector<std::shared_ptr<PMIDatumTarget>> const& GetDatumTargets() const
    {
        return members_.datumTargets;
    }
    std::vector<std::shared_ptr<PMIGDT>> const& GetGDTs() const { return members_.tolerances; }
    std::vector<std::shared_ptr<PMIDimension>> const& GetDimensions() const { return members_.dimensions; }
    std::vector<std::shared_ptr<PMIRoughness>> const& GetRoughnesses() const { return members_.roughnesses; }

    void SetCamera(std::optional<PMICamera> camera) { camera_ = camera; }
    std::optional<PMICamera> const& GetCamera() const { return camera_; }

private:
    Members members_;
    std::optional<PMICamera> camera_;
};

} // namespace NarMetaPmi
