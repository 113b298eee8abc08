#include "zel_xml_parts.h"

namespace NarMetaInfra
{

using namespace NarMetaPmi;

namespace
{

void WriteBase(XmlSink& sink, PMIBase const& object)
{
    sink.Attribute("id", object.GetHashedID());
    sink.Attribute("name", object.GetName());
    sink.Flag("hidden", object.IsHidden());
}

void WriteCamera(XmlSink& sink, std::optional<PMICamera> const& camera)
{
    if (!camera) return;
    auto const element = sink.Open("camera");
    sink.Attribute("position", camera->position);
    sink.Attribute("direction", camera->direction);
    sink.Attribute("up", camera->up);
    sink.Attribute("width", camera->width);
    sink.Attribute("height", camera->height);
    sink.Flag("perspective", camera->perspective);
}

/// Attributes that only some kinds have.
void WriteOwn(XmlSink&, PMIAnnotation const&) {}

void WriteOwn(XmlSink& sink, PMIGDT const& tolerance)
{
    PMIToleranceType type{};
    double value = 0;
    tolerance.GetToleranceInfo(type, value);
    sink.Attribute("type", static_cast<int>(type));
    sink.Attribute("value", value);
}

void WriteOwn(XmlSink& sink, PMIDimension const& dimension)
{
    PMIDimensionType type{};
    PMIDimensionSubType subType{};
    dimension.GetType(type, subType);
    sink.Attribute("type", static_cast<int>(type));
    sink.Attribute("subtype", static_cast<int>(subType));
    if (auto const& value = dimension.GetValue()) {
        sink.Attribute("nominal", value->nominal);
        if (value->upper) sink.Attribute("upper", *value->upper);
        if (value->lower) sink.Attribute("lower", *value->lower);
    }
}

void ReadOwn(XmlSource&, PMIAnnotation&) {}

void ReadOwn(XmlSource& source, PMIGDT& tolerance)
{
    tolerance.SetToleranceInfo(source.Choice("type", 0, 17, PMIToleranceType::Unknown),
                               source.NumberOf<double>("value").value_or(0));
}

void ReadOwn(XmlSource& source, PMIDimension& dimension)
{
    dimension.SetType(source.Choice("type", 0, 2, PMIDimensionType::Unknown),
                      source.Choice("subtype", 0, 22, PMIDimensionSubType::Unknown));
    if (auto const nominal = source.NumberOf<double>("nominal"))
        dimension.SetValue(
            PMIDimensionValue{*nominal, source.NumberOf<double>("upper"), source.NumberOf<double>("lower")});
}

template <class Annotation>
void WriteList(XmlSink& sink, char const* name, std::vector<std::shared_ptr<Annotation>> const& list)
{
    for (auto const& annotation : list) {
        auto const element = sink.Open(name);
        WriteBase(sink, *annotation);
        WriteOwn(sink, *annotation);
        sink.Attribute("text", annotation->GetText());
        for (auto const& [path, entity] : annotation->GetLinkedEntities()) {
            auto const link = sink.Open("link");
            sink.Attribute("entity", entity);
            for (auto const& pid : path) sink.Text("instance", pid);
        }
        for (auto const& [label, value] : annotation->GetUserProperties()) {
            auto const property = sink.Open("property");
            sink.Attribute("name", label);
            sink.Attribute("value", value);
        }
    }
}

template <class Object> std::shared_ptr<Object> ReadBase(XmlSource& source)
{
    auto const name = source.Text("name");
    auto const id = source.NumberOf<Id>("id").value_or(NarMeta::HashId(name));
    auto object = std::make_shared<Object>(id, name);
    object->SetHidden(source.Flag("hidden"));
    return object;
}

std::optional<PMICamera> ReadCamera(XmlSource& source)
{
    PMICamera const none;
    return PMICamera{source.Tuple<3, double>("position").value_or(none.position),
                     source.Tuple<3, double>("direction").value_or(none.direction),
                     source.Tuple<3, double>("up").value_or(none.up),
                     source.NumberOf<double>("width").value_or(0),
                     source.NumberOf<double>("height").value_or(0),
                     source.Flag("perspective")};
}

template <class Annotation> void ReadInto(XmlSource& source, std::vector<std::shared_ptr<Annotation>>& list)
{
    auto annotation = ReadBase<Annotation>(source);
    ReadOwn(source, *annotation);
    annotation->SetText(source.Text("text"));
    NarMeta::Properties properties;
    source.Children(
        {{"link",
          [&] {
              LinkedEntity link{{}, source.Text("entity")};
              source.Children({{"instance", [&] { link.first.push_back(source.TextContent()); }}});
              annotation->AddLinkedEntity(std::move(link));
          }},
         {"property", [&] {
              properties.push_back({source.Text("name"), source.Text("value")});
          }}});
    annotation->SetUserProperties(std::move(properties));
    list.push_back(std::move(annotation));
}

std::shared_ptr<PMIAnnotationView> ReadView(XmlSource& source)
{
    auto view = ReadBase<PMIAnnotationView>(source);
    view->SetActive(source.Flag("active"));
    auto& members = view->Content();
    source.Children({{"camera", [&] { view->SetCamera(ReadCamera(source)); }},
                     {"note", [&] { ReadInto(source, members.notes); }},
                     {"datum", [&] { ReadInto(source, members.datums); }},
                     {"datum_target", [&] { ReadInto(source, members.datumTargets); }},
                     {"tolerance", [&] { ReadInto(source, members.tolerances); }},
                     {"dimension", [&] { ReadInto(source, members.dimensions); }},
                     {"roughness", [&] { ReadInto(source, members.roughnesses); }}});
    return view;
}

std::shared_ptr<PMICapture> ReadCapture(XmlSource& source)
{
    auto capture = ReadBase<PMICapture>(source);
    capture->SetActive(source.Flag("active"));
    std::vector<NarMeta::Id> ids;
    std::vector<std::wstring> visible;
    std::vector<PMIClippingPlane> planes;
    source.Children({{"camera", [&] { capture->SetCamera(ReadCamera(source)); }},
                     {"shows", [&] { ids.push_back(source.NumberOf<Id>("id").value_or(0)); }},
                     {"part", [&] { visible.push_back(source.Text("pid")); }},
                     {"clipping", [&] {
                          PMIClippingPlane const none;
                          planes.push_back({source.Tuple<3, double>("point").value_or(none.point),
                                            source.Tuple<3, double>("normal").value_or(none.normal)});
                      }}});
    capture->SetAnnotationIds(std::move(ids));
    capture->SetVisibleReferences(std::move(visible));
    capture->SetClippingPlanes(std::move(planes));
    return capture;
}

void WriteSet(XmlSink& sink, PMIAnnotationSet const& set)
{
    auto const element = sink.Open("set");
    WriteBase(sink, set);
    sink.Attribute("standard", set.GetStandard());
    for (auto const& view : set.GetViews()) {
        auto const child = sink.Open("view");
        WriteBase(sink, *view);
        sink.Flag("active", view->GetActive());
        WriteCamera(sink, view->GetCamera());
        auto const& members = view->Content();
        WriteList(sink, "note", members.notes);
        WriteList(sink, "datum", members.datums);
        WriteList(sink, "datum_target", members.datumTargets);
        WriteList(sink, "tolerance", members.tolerances);
        WriteList(sink, "dimension", members.dimensions);
        WriteList(sink, "roughness", members.roughnesses);
    }
    for (auto const& capture : set.GetCaptures()) {
        auto const child = sink.Open("capture");
        WriteBase(sink, *capture);
        sink.Flag("active", capture->GetActive());
        WriteCamera(sink, capture->GetCamera());
        for (auto const id : capture->GetAnnotationIds()) {
            auto const shown = sink.Open("shows");
            sink.Attribute("id", id);
        }
        for (auto const& pid : capture->GetVisibleReferences()) {
            auto const part = sink.Open("part");
            sink.Attribute("pid", pid);
        }
        for (auto const& plane : capture->GetClippingPlanes()) {
            auto const clipping = sink.Open("clipping");
            sink.Attribute("point", plane.point);
            sink.Attribute("normal", plane.normal);
        }
    }
}

std::shared_ptr<PMIAnnotationSet> ReadSet(XmlSource& source)
{
    auto set = ReadBase<PMIAnnotationSet>(source);
    set->SetStandard(source.Text("standard"));
    source.Children({{"view", [&] { set->AddView(ReadView(source)); }},
                     {"capture", [&] { set->AddCapture(ReadCapture(source)); }}});
    return set;
}

} // namespace

void WriteAnnotations(XmlSink& sink, PMIContainer const& container)
{
    auto const element = sink.Open("annotations");
    for (auto const& [pid, sets] : container.GetOwners()) {
        auto const owner = sink.Open("owner");
        sink.Attribute("pid", pid);
        for (auto const& set : sets) WriteSet(sink, *set);
    }
}

std::shared_ptr<PMIContainer> ReadAnnotations(XmlSource& source)
{
    auto container = std::make_shared<PMIContainer>();
    source.Children(
        {{"owner", [&] {
              auto const pid = source.Text("pid");
              source.Children({{"set", [&] { container->AddAnnotationSet(pid, ReadSet(source)); }}});
          }}});
    return container;
}

} // namespace NarMetaInfra
