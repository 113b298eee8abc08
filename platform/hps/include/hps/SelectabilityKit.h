#pragma once
#include <array>
#include <hps/Kit.h>
#include <hps/enumerations.h>

namespace HPS
{

// What can be selected, kind by kind.
struct SelectabilityData {
    std::optional<Selectability::Value> windows;
    std::optional<Selectability::Value> edges;
    std::optional<Selectability::Value> faces;
    std::optional<Selectability::Value> lights;
    std::optional<Selectability::Value> lines;
    std::optional<Selectability::Value> markers;
    std::optional<Selectability::Value> vertices;
    std::optional<Selectability::Value> text;

    bool operator==(SelectabilityData const&) const = default;
    static constexpr auto aspects()
    {
        return std::tuple{Aspect{1, "Windows", &SelectabilityData::windows},
                          Aspect{2, "Edges", &SelectabilityData::edges},
                          Aspect{3, "Faces", &SelectabilityData::faces},
                          Aspect{4, "Lights", &SelectabilityData::lights},
                          Aspect{5, "Lines", &SelectabilityData::lines},
                          Aspect{6, "Markers", &SelectabilityData::markers},
                          Aspect{7, "Vertices", &SelectabilityData::vertices},
                          Aspect{8, "Text", &SelectabilityData::text}};
    }
};
static_assert(CompleteKit<SelectabilityData>);

template <class Self> class SelectabilityOperations : public Operations<Self>
{
public:
    using Data = SelectabilityData;
    using Value = Selectability::Value;

    // A bool stands for On and Off; as a result it is true for On and ForcedOn.
#define HPS_SELECTABILITY(Name, slot)                                                                        \
    HPS_ASPECT(Name, Value, slot)                                                                            \
    Self& Set##Name(bool state)                                                                              \
    {                                                                                                        \
        return Set##Name(state ? Value::On : Value::Off);                                                    \
    }                                                                                                        \
    bool Show##Name(bool& state) const                                                                       \
    {                                                                                                        \
        return showState<&Data::slot>(state);                                                                \
    }
    HPS_SELECTABILITY(Windows, windows)
    HPS_SELECTABILITY(Edges, edges)
    HPS_SELECTABILITY(Faces, faces)
    HPS_SELECTABILITY(Lights, lights)
    HPS_SELECTABILITY(Lines, lines)
    HPS_SELECTABILITY(Markers, markers)
    HPS_SELECTABILITY(Vertices, vertices)
    HPS_SELECTABILITY(Text, text)
#undef HPS_SELECTABILITY

    Self& SetEverything(Value value)
    {
        return putAll(value);
    }
    Self& SetEverything(bool state)
    {
        return putAll(state ? Value::On : Value::Off);
    }
    Self& UnsetEverything()
    {
        return putAll(std::nullopt);
    }

private:
    Self& putAll(std::optional<Value> value)
    {
        this->self().edit(
            [&](Data& data) { forEachAspect<Data>([&](auto const& aspect) { aspect.put(data, value); }); });
        return this->self();
    }
    template <auto Slot> bool showState(bool& state) const
    {
        Value value{};
        if (!detail::show<Slot>(this->self(), value)) return false;
        state = value != Value::Off;
        return true;
    }
};

class SelectabilityKit : public Kit<SelectabilityKit, SelectabilityOperations>
{
public:
    static SelectabilityKit GetDefault();
};

class SelectabilityControl : public Control<SelectabilityControl, SelectabilityOperations>
{
public:
    using Control::Control;
};

} // namespace HPS
