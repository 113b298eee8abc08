#pragma once
#include <hps/Kit.h>

namespace HPS
{

// The kinds of things that can be seen, as bits.
struct VisibilityKinds {
    // In the order of the attribute locks; LeaderLines, which has no lock of its own, last.
    enum Kind : std::uint32_t {
        CuttingSections,
        CutEdges,
        CutFaces,
        Windows,
        Text,
        Lines,
        EdgeLights,
        MarkerLights,
        FaceLights,
        GenericEdges,
        HardEdges,
        AdjacentEdges,
        InteriorSilhouetteEdges,
        ShadowEmitting,
        ShadowReceiving,
        ShadowCasting,
        Markers,
        Vertices,
        Faces,
        PerimeterEdges,
        NonCulledEdges,
        MeshQuadEdges,
        LeaderLines,
        KindCount
    };
    static constexpr std::uint32_t bit(Kind kind) { return 1u << kind; }

    bool operator==(VisibilityKinds const&) const = default;
};

// What is seen, kind by kind, so that inheritance is a few operations on words.
struct VisibilityData : VisibilityKinds {
    static constexpr std::uint32_t everything = (1u << KindCount) - 1;
    static constexpr std::uint32_t edges = bit(GenericEdges) | bit(HardEdges) | bit(AdjacentEdges) |
                                           bit(InteriorSilhouetteEdges) | bit(PerimeterEdges) |
                                           bit(NonCulledEdges) | bit(MeshQuadEdges);
    static constexpr std::uint32_t cutGeometry = bit(CutEdges) | bit(CutFaces);
    static constexpr std::uint32_t lights = bit(EdgeLights) | bit(MarkerLights) | bit(FaceLights);
    static constexpr std::uint32_t shadows = bit(ShadowEmitting) | bit(ShadowReceiving) | bit(ShadowCasting);
    static constexpr std::uint32_t geometry =
        edges | bit(Faces) | bit(Lines) | bit(Text) | bit(LeaderLines) | bit(Vertices) | bit(Markers);

    std::uint32_t isSet = 0; // a bit for each kind that has a value
    std::uint32_t value = 0; // its value; zero where nothing is set

    void put(std::uint32_t kinds, bool state)
    {
        isSet |= kinds;
        value = state ? value | kinds : value & ~kinds;
    }
    void unset(std::uint32_t kinds)
    {
        isSet &= ~kinds;
        value &= ~kinds;
    }
    // True if the kind is to be seen; what is not set counts as `fallback`.
    bool shows(Kind kind, bool fallback) const { return isSet & bit(kind) ? value & bit(kind) : fallback; }

    friend bool operator==(VisibilityData const& a, VisibilityData const& b)
    {
        return a.isSet == b.isSet && a.value == b.value;
    }

    struct KindAspect {
        using Value = bool;
        std::uint16_t id;
        std::string_view name;
        Kind kind;
        std::optional<bool> get(VisibilityData const& data) const
        {
            return data.isSet & bit(kind) ? std::optional<bool>(data.value & bit(kind)) : std::nullopt;
        }
        void put(VisibilityData& data, std::optional<bool> state) const
        {
            state ? data.put(bit(kind), *state) : data.unset(bit(kind));
        }
    };
    static constexpr auto aspects()
    {
        return std::tuple{KindAspect{1, "Faces", Faces},
                          KindAspect{2, "Lines", Lines},
                          KindAspect{3, "GenericEdges", GenericEdges},
                          KindAspect{4, "InteriorSilhouetteEdges", InteriorSilhouetteEdges},
                          KindAspect{5, "AdjacentEdges", AdjacentEdges},
                          KindAspect{6, "HardEdges", HardEdges},
                          KindAspect{7, "MeshQuadEdges", MeshQuadEdges},
                          KindAspect{8, "NonCulledEdges", NonCulledEdges},
                          KindAspect{9, "PerimeterEdges", PerimeterEdges},
                          KindAspect{10, "Text", Text},
                          KindAspect{11, "LeaderLines", LeaderLines},
                          KindAspect{12, "Vertices", Vertices},
                          KindAspect{13, "Markers", Markers},
                          KindAspect{14, "EdgeLights", EdgeLights},
                          KindAspect{15, "MarkerLights", MarkerLights},
                          KindAspect{16, "FaceLights", FaceLights},
                          KindAspect{17, "CuttingSections", CuttingSections},
                          KindAspect{18, "CutFaces", CutFaces},
                          KindAspect{19, "CutEdges", CutEdges},
                          KindAspect{20, "Windows", Windows},
                          KindAspect{21, "ShadowCasting", ShadowCasting},
                          KindAspect{22, "ShadowReceiving", ShadowReceiving},
                          KindAspect{23, "ShadowEmitting", ShadowEmitting}};
    }
};
static_assert(std::tuple_size_v<decltype(VisibilityData::aspects())> == VisibilityData::KindCount);

template <class Self> class VisibilityOperations : public Operations<Self>
{
public:
    using Data = VisibilityData;

    // Show of a group is true if all its kinds are set alike.
#define HPS_VISIBILITY(Name, kinds)                                                                          \
    Self& Set##Name(bool state)                                                                              \
    {                                                                                                        \
        return put(kinds, state);                                                                            \
    }                                                                                                        \
    Self& Unset##Name()                                                                                      \
    {                                                                                                        \
        return unset(kinds);                                                                                 \
    }                                                                                                        \
    bool Show##Name(bool& state) const                                                                       \
    {                                                                                                        \
        return show(kinds, state);                                                                           \
    }
    HPS_VISIBILITY(Everything, Data::everything)
    HPS_VISIBILITY(Geometry, Data::geometry)
    HPS_VISIBILITY(Edges, Data::edges)
    HPS_VISIBILITY(Lights, Data::lights)
    HPS_VISIBILITY(Shadows, Data::shadows)
    HPS_VISIBILITY(CutGeometry, Data::cutGeometry)
    HPS_VISIBILITY(Faces, Data::bit(Data::Faces))
    HPS_VISIBILITY(Lines, Data::bit(Data::Lines))
    HPS_VISIBILITY(GenericEdges, Data::bit(Data::GenericEdges))
    HPS_VISIBILITY(InteriorSilhouetteEdges, Data::bit(Data::InteriorSilhouetteEdges))
    HPS_VISIBILITY(AdjacentEdges, Data::bit(Data::AdjacentEdges))
    HPS_VISIBILITY(HardEdges, Data::bit(Data::HardEdges))
    HPS_VISIBILITY(MeshQuadEdges, Data::bit(Data::MeshQuadEdges))
    HPS_VISIBILITY(NonCulledEdges, Data::bit(Data::NonCulledEdges))
    HPS_VISIBILITY(PerimeterEdges, Data::bit(Data::PerimeterEdges))
    HPS_VISIBILITY(Text, Data::bit(Data::Text))
    HPS_VISIBILITY(LeaderLines, Data::bit(Data::LeaderLines))
    HPS_VISIBILITY(Vertices, Data::bit(Data::Vertices))
    HPS_VISIBILITY(Markers, Data::bit(Data::Markers))
    HPS_VISIBILITY(EdgeLights, Data::bit(Data::EdgeLights))
    HPS_VISIBILITY(MarkerLights, Data::bit(Data::MarkerLights))
    HPS_VISIBILITY(FaceLights, Data::bit(Data::FaceLights))
    HPS_VISIBILITY(CuttingSections, Data::bit(Data::CuttingSections))
    HPS_VISIBILITY(CutFaces, Data::bit(Data::CutFaces))
    HPS_VISIBILITY(CutEdges, Data::bit(Data::CutEdges))
    HPS_VISIBILITY(Windows, Data::bit(Data::Windows))
    HPS_VISIBILITY(ShadowCasting, Data::bit(Data::ShadowCasting))
    HPS_VISIBILITY(ShadowReceiving, Data::bit(Data::ShadowReceiving))
    HPS_VISIBILITY(ShadowEmitting, Data::bit(Data::ShadowEmitting))
#undef HPS_VISIBILITY

private:
    Self& put(std::uint32_t kinds, bool state)
    {
        this->self().edit([&](Data& data) { data.put(kinds, state); });
        return this->self();
    }
    Self& unset(std::uint32_t kinds)
    {
        this->self().edit([&](Data& data) { data.unset(kinds); });
        return this->self();
    }
    bool show(std::uint32_t kinds, bool& state) const
    {
        Data const& data = this->self().data();
        auto const on = data.value & kinds;
        if ((data.isSet & kinds) != kinds || (on != 0 && on != kinds)) return false;
        state = on != 0;
        return true;
    }
};

class VisibilityKit : public Kit<VisibilityKit, VisibilityOperations>
{
public:
    static VisibilityKit GetDefault();
};

class VisibilityControl : public Control<VisibilityControl, VisibilityOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
