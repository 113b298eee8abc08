#pragma once

#include "hps_api.h"
#include "model_api.h"

#include <map>
#include <optional>
#include <vector>

namespace ZelCad
{

/// What a view or a capture of the model asks of a display.
struct SavedView {
    std::optional<NarMetaPmi::PMICamera> camera;
    std::vector<NarMeta::Id> annotations; ///< that it shows; sorted
    std::vector<NarMetaPmi::PMIClippingPlane> planes;
    std::vector<std::wstring> references; ///< PIDs of those that it shows; empty: all
};

SavedView savedView(NarMetaPmi::PMIAnnotationView const& view);
SavedView savedView(NarMetaPmi::PMICapture const& capture);

/// Marks the annotations of a container as hidden but for those that a saved view shows, and gives the ids of
/// all of them.
std::vector<NarMeta::Id> showOnly(NarMetaPmi::PMIContainer const& container, SavedView const& saved);

/// Whether a saved view shows each part of a model: those that it names and those inside what it names.
std::map<NarMetaInfra::ZELReference const*, bool> shownParts(NarMetaInfra::ZELProductStructure const& model,
                                                             SavedView const& saved);

/// The camera of a saved view in a view of the scene. `placing` takes its coordinates to the world, and the
/// eye stands where the field of view is `degrees` over the height. Files often give a field that has nothing
/// to do with what is to be seen: it is taken if all of `annotations` lies in it, and else all that the view
/// shows is seen.
/// @param annotations extent of those that the saved view shows, in the world; may be empty
HPS::CameraKit cameraOf(NarMetaPmi::PMICamera const& saved, HPS::MatrixKit const& placing,
                        HPS::View const& view, float degrees, HPS::SimpleCuboid const& annotations);

/// A plane behind which things stay, in the world.
HPS::Plane planeOf(NarMetaPmi::PMIClippingPlane const& saved, HPS::MatrixKit const& placing);

} // namespace ZelCad
