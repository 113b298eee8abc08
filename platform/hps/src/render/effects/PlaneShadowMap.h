#pragma once
#include "Shadows.h"
#include "Surface.h"
#include "Viewing.h"
#include <deque>
#include <optional>

namespace HPS::render
{

/// The outlines of things seen from a light, softened, and laid on a plane as a shadow. Kept as long as the
/// scene and the plane stay.
class PlaneShadowMap
{
public:
    struct Key {
        std::uint64_t list = 0; ///< version of the draw list
        PlaneShadow shadow;
        bool operator==(Key const&) const = default;
    };

    /// False for a plane that the light only grazes: no shadow falls there.
    static bool falls(PlaneShadow const& shadow);

    bool holds(Key const& key) const { return key_ == key; }

    /// Begins anew. `casters` is around what throws the shadow. What is drawn next, with ProgramName::Cover
    /// and the state left here, is seen by the viewing given back.
    Viewing begin(Key const& key, Box const& casters);
    /// Softens what was drawn.
    void finish();

    /// Lays the shadow over what is bound; needs the frame block of `view`, and its depths are tested.
    void paint(Viewing const& view) const;

private:
    std::optional<Key> key_;
    std::optional<Viewing> light_;
    std::deque<Surface> covers_; ///< each half the size of the one before
    std::optional<Surface> between_;
};

} // namespace HPS::render
