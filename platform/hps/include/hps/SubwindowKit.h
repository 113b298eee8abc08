#pragma once
#include <hps/Key.h>
#include <hps/Kit.h>
#include <hps/Rectangle.h>
#include <hps/enumerations.h>

namespace HPS
{

// Makes a segment a window of its own within the one it is shown in.
struct SubwindowData {
    std::optional<std::tuple<Rectangle, IntRectangle, HPS::Subwindow::Type>> subwindow;
    std::optional<std::tuple<HPS::Subwindow::Background, UTF8>> background;
    std::optional<HPS::Subwindow::Border> border;
    std::optional<HPS::Subwindow::RenderingAlgorithm> renderingAlgorithm;
    std::optional<std::tuple<bool, KeyIndex, KeyIndex>> modelCompareMode;

    bool operator==(SubwindowData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Subwindow", &SubwindowData::subwindow},
                          Aspect{2, "Background", &SubwindowData::background},
                          Aspect{3, "Border", &SubwindowData::border},
                          Aspect{4, "RenderingAlgorithm", &SubwindowData::renderingAlgorithm},
                          Aspect{5, "ModelCompareMode", &SubwindowData::modelCompareMode}};
    }
};
static_assert(CompleteKit<SubwindowData>);

template <class Self> class SubwindowOperations : public Operations<Self>
{
public:
    using Data = SubwindowData;

    // Position from -1 to 1 in the window around it, and offsets from there in pixels.
    HPS_ASPECT_PARTS(Subwindow, subwindow,
                     (Rectangle const& position, IntRectangle const& offsets,
                      HPS::Subwindow::Type type = HPS::Subwindow::Type::Standard),
                     (Rectangle & position, IntRectangle& offsets, HPS::Subwindow::Type& type), position,
                     offsets, type)
    // The definition names the picture of Image and Cubemap.
    HPS_ASPECT_PARTS(Background, background,
                     (HPS::Subwindow::Background type, UTF8 const& definitionName = {}),
                     (HPS::Subwindow::Background & type, UTF8& definitionName), type, definitionName)
    HPS_ASPECT(Border, HPS::Subwindow::Border, border)
    HPS_ASPECT(RenderingAlgorithm, HPS::Subwindow::RenderingAlgorithm, renderingAlgorithm)
    // Shows where two segments differ.
    Self& SetModelCompareMode(bool state, Key const& source1 = Key(), Key const& source2 = Key())
    {
        return detail::set<&Data::modelCompareMode>(this->self(),
                                                    std::tuple{state, source1.Index(), source2.Index()});
    }
    Self& UnsetModelCompareMode() { return detail::unset<&Data::modelCompareMode>(this->self()); }
    template <class AnyKey> bool ShowModelCompareMode(bool& state, AnyKey& source1, AnyKey& source2) const
    {
        KeyIndex index1, index2;
        if (!detail::show<&Data::modelCompareMode>(this->self(), state, index1, index2)) return false;
        source1 = AnyKey(Key(index1));
        source2 = AnyKey(Key(index2));
        return true;
    }
};

class SubwindowKit : public Kit<SubwindowKit, SubwindowOperations>
{
public:
    static SubwindowKit GetDefault();
};

class SubwindowControl : public Control<SubwindowControl, SubwindowOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
