#pragma once
#include "Look.h"
#include "Placing.h"
#include "affine.h"
#include "net_attributes.h"
#include <unordered_map>

namespace HPS::selection
{

/// What of the contents of a segment may be found on one path, and what hides what is behind it.
struct PickLook {
    render::Look pickable; ///< as it would be drawn if all that is selectable were what is visible
    render::Placing placing;
    bool facesHide = false; ///< faces are seen, and nothing is seen through them
    bool sectionsCut = true, sectionsCutBelow = true;
    struct VectorCulling {
        Vec3 direction; ///< length 1
        double cosine;  ///< of the largest angle to it
    };
    std::optional<VectorCulling> vectorCulling; ///< faces whose normals lie there are not drawn

    bool anything() const { return pickable.anything(); }
};

/// Looks by net states. Each is worked out once, as long as few are in use.
class PickLooks
{
public:
    PickLook const& of(scene::NetStatePointer const& state);
    void clear() { held_.clear(); }

private:
    struct Held {
        scene::NetStatePointer state;
        PickLook look;
    };
    std::unordered_map<scene::NetState const*, Held> held_;
    render::StrokeTable strokes_; ///< that looks name patterns in; nothing is drawn with them
};

} // namespace HPS::selection
