#include "open_cascade_model.h"

#include "open_cascade_guard.h"
#include "open_cascade_part.h"
#include "stage_clock.h"
#include "text_encoding.h"
#include "visualisation_nodes.h"

#include <algorithm>

#include <sstream>

#include <BRep_Builder.hxx>
#include <BinTools.hxx>
#include <Message_ProgressScope.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_IndexedMapOfShape.hxx>
#include <TopoDS_Compound.hxx>
#include <gp_Trsf.hxx>

namespace NarMetaInfra
{
namespace
{
Matrix matrixOf(gp_Trsf const& placement)
{
    Matrix matrix = IdentityMatrix;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 4; ++column)
            matrix[static_cast<std::size_t>(4 * column + row)] =
                static_cast<float>(placement.Value(row + 1, column + 1));
    return matrix;
}

std::wstring firstNamed(std::initializer_list<std::wstring> names)
{
    for (auto const& name : names)
        if (!name.empty()) return name;
    return {};
}

// An exporter's running number where a name was left blank; a user knows the part by its own name then.
bool isSerial(std::wstring_view id)
{
    if (id.starts_with(L"NAUO")) id.remove_prefix(4);
    return std::ranges::all_of(id, [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

// A surface, curve or point that belongs to no product of its own: formats without structure have one root
// for each.
bool isLoose(TopoDS_Shape const& shape)
{
    return !shape.IsNull() && shape.ShapeType() >= TopAbs_SHELL;
}

std::shared_ptr<ExactShape const> exactShapeOf(std::vector<TopoDS_Shape> const& shapes,
                                               PartConverter const& converter)
{
    TopoDS_Shape whole = shapes.empty() ? TopoDS_Shape() : shapes.front();
    if (shapes.size() > 1) {
        TopoDS_Compound compound;
        BRep_Builder builder;
        builder.MakeCompound(compound);
        for (auto const& shape : shapes) builder.Add(compound, shape);
        whole = compound;
    }
    if (whole.IsNull()) return nullptr;
    auto made = std::make_shared<ExactShape>();
    TopTools_IndexedMapOfShape faces;
    TopExp::MapShapes(whole, TopAbs_FACE, faces);
    for (int i = 1; i <= faces.Extent(); ++i) {
        auto const id = converter.faceIds().find(faces(i).TShape().get());
        made->faces.push_back(id == converter.faceIds().end() ? 0 : id->second);
    }
    std::ostringstream stream;
    BinTools::Write(whole, stream, false, false, BinTools_FormatVersion_CURRENT);
    made->bytes = std::move(stream).str();
    return made;
}
} // namespace

ModelBuilder::ModelBuilder(KernelDocument& document, PartMesher& mesher, BuildOptions const& options,
                           ZELProductStructure& model)
    : Document(document),
      Mesher(mesher),
      Options(options),
      Model(model),
      Materials(document.materialDetails),
      Shapes(document.shapes())
{
}

void ModelBuilder::buildStructure()
{
    std::vector<TDF_Label> roots, loose;
    for (auto const& label : Document.rootLabels()) {
        bool const joins = !Document.isMesh && !Document.products.IsBound(label) &&
                           !Shapes->IsReference(label) && !Shapes->IsAssembly(label) &&
                           isLoose(Shapes->GetShape(label));
        (joins ? loose : roots).push_back(label);
    }
    if (loose.size() == 1) roots.push_back(loose.front());
    Model.SetProductName(Document.title);
    Model.SetPID(unique(idText(Document.title)));
    buildRoots(roots);
    if (loose.size() > 1) {
        auto const pid = unique(idText(Document.title) + L"#loose");
        addPart(loose, Model.AddReference(ZELReference::Kind::Part, pid, Document.title));
        Model.AddRootInstance(Parts.back().reference, unique(L"root." + pid), Document.title);
    }
    tieSources();
}

void ModelBuilder::buildRoots(std::vector<TDF_Label> const& roots)
{
    if (roots.size() == 1 && isAssembly(roots.front())) {
        auto const& top = roots.front();
        auto const* const mark = Document.products.Seek(top);
        auto const name = firstNamed({Document.nameOf(top), mark ? mark->name : L"", Document.title});
        auto const pid = unique(pidOf(top, name));
        Model.SetProductName(name);
        Model.SetPID(pid);
        Top = top;
        for (auto const& component : componentsOf(top))
            Model.AddRootInstance(makeInstance(component, pid, name));
        return;
    }
    for (auto const& root : roots) Model.AddRootInstance(makeInstance(root, L"root", Document.title));
}

std::vector<TDF_Label> ModelBuilder::componentsOf(TDF_Label const& assembly) const
{
    TDF_LabelSequence components;
    Shapes->GetComponents(assembly, components);
    return {components.begin(), components.end()};
}

// The kernel also makes assemblies of parts that consist of several shapes. Nobody named those components,
// and they use no product.
bool ModelBuilder::isAssembly(TDF_Label const& label) const
{
    if (!Shapes->IsAssembly(label)) return false;
    if (Document.isMesh) return true;
    return std::ranges::any_of(componentsOf(label), [&](TDF_Label const& component) {
        TDF_Label child;
        if (Document.occurrences.IsBound(component) || !Document.nameOf(component).empty()) return true;
        if (!Shapes->GetReferredShape(component, child)) return false;
        return Document.products.IsBound(child) || !Document.nameOf(child).empty() ||
               Shapes->IsAssembly(child);
    });
}

ModelBuilder::InstancePointer ModelBuilder::makeInstance(TDF_Label const& component,
                                                         std::wstring const& ownerPid,
                                                         std::wstring const& ownerName)
{
    TDF_Label label = component;
    TopLoc_Location location;
    if (Shapes->GetReferredShape(component, label)) location = XCAFDoc_ShapeTool::GetLocation(component);
    auto const reference = referenceOf(label, ownerName);

    auto const* const mark = Document.occurrences.Seek(component);
    bool const isOwn = component == label;
    auto const labelName = isOwn ? std::wstring() : Document.nameOf(component);
    auto const name = mark ? firstNamed({mark->name, isSerial(mark->id) ? L"" : mark->id}) : labelName;
    std::wstring step;
    if (mark)
        step = idText(firstNamed({mark->id, mark->name})) + L"#" + std::to_wstring(mark->number);
    else
        reference->GetPID(step);
    auto const instance = std::make_shared<ZELInstance>(reference, unique(ownerPid + L"." + step),
                                                        firstNamed({name, reference->GetReferenceName()}));
    Instances.Bind(component, instance);
    auto const* const placement = Document.placements.Seek(component);
    instance->SetTransform(placement ? *placement : matrixOf(location.Transformation()));

    // The look of a part as a whole goes to its bodies; an assembly has none, so its look goes to its
    // instances.
    auto style = isOwn || !Options.occurrenceLooks ? ShapeStyle() : labelStyle(Document, component);
    if (reference->GetKind() == ZELReference::Kind::Assembly)
        style = inherited(labelStyle(Document, label), style);
    if (style.hidden) instance->SetHidden(true);
    if (style.colour) OccurrenceColours.push_back({instance, style});
    return instance;
}

std::wstring ModelBuilder::pidOf(TDF_Label const& label, std::wstring const& name) const
{
    if (auto const* const mark = Document.products.Seek(label))
        return idText(firstNamed({mark->id, mark->name, name})) + L"#" + std::to_wstring(mark->number);
    return idText(name);
}

ModelBuilder::ReferencePointer ModelBuilder::referenceOf(TDF_Label const& label,
                                                         std::wstring const& ownerName)
{
    if (auto const* const known = References.Seek(label)) return *known;
    auto const* const mark = Document.products.Seek(label);
    auto const name =
        firstNamed({mark ? mark->name : L"", Document.nameOf(label), mark ? mark->id : L"", ownerName});
    auto const pid = unique(pidOf(label, name));
    auto kind = isAssembly(label) ? ZELReference::Kind::Assembly : ZELReference::Kind::Part;
    if (mark && mark->isMissing) kind = ZELReference::Kind::Missing;
    auto const reference = Model.AddReference(kind, pid, name);
    References.Bind(label, reference);
    if (mark) {
        reference->SetStorageName(wideFromBytes(mark->storageFile));
    }
    switch (kind) {
    case ZELReference::Kind::Part:
        addPart({label}, reference);
        break;
    case ZELReference::Kind::Assembly:
        for (auto const& component : componentsOf(label))
            reference->AddInstance(makeInstance(component, pid, name));
        break;
    case ZELReference::Kind::Missing:
        HasContents = true;
        Document.warnings.push_back("the file \"" + mark->storageFile + "\" is missing or can't be read");
        break;
    }
    return reference;
}

void ModelBuilder::addPart(std::vector<TDF_Label> labels, ReferencePointer reference)
{
    Part part{std::move(labels), std::move(reference), 0};
    for (auto const& label : part.labels)
        for (TopExp_Explorer face(Shapes->GetShape(label), TopAbs_FACE); face.More(); face.Next())
            ++part.faceCount;
    Parts.push_back(std::move(part));
}

std::wstring ModelBuilder::unique(std::wstring pid)
{
    auto& repeats = Pids.try_emplace(pid, 0).first->second;
    if (repeats++ == 0) return pid;
    // From where the last search ended: a file may use one part a hundred thousand times.
    for (auto const base = pid; !Pids.try_emplace(pid = base + L"~" + std::to_wstring(repeats), 1).second;)
        ++repeats;
    return pid;
}

void ModelBuilder::buildParts(BuildTimes& times, Message_ProgressRange const& range)
{
    double total = 0.0;
    for (auto const& part : Parts) {
        total += part.faceCount + 1;
        if (Document.isMesh) continue;
        for (auto const& label : part.labels) Mesher.add(Shapes->GetShape(label));
    }
    Message_ProgressScope scope(range, "parts", total);
    for (auto const& part : Parts) {
        auto const share = scope.Next(part.faceCount + 1);
        if (scope.UserBreak()) return;
        buildPart(part, times, share);
    }
    settleOccurrenceColours();
}

void ModelBuilder::buildPart(Part const& part, BuildTimes& times, Message_ProgressRange const& range)
{
    auto const warn = [&](std::string const& text) {
        Document.warnings.push_back("part \"" + utf8FromWide(part.reference->GetReferenceName()) +
                                    "\": " + text);
    };
    Message_ProgressScope scope(range, "part", static_cast<double>(part.labels.size()));
    TessellationTolerance tolerance;
    std::vector<TopoDS_Shape> shapes;
    for (auto const& label : part.labels) {
        auto const shape = Shapes->GetShape(label);
        auto const share = scope.Next();
        if (shape.IsNull()) continue;
        shapes.push_back(shape);
        if (Document.isMesh) continue;
        StageClock const clock(times.mesh);
        auto const outcome = Mesher.take(shape, share);
        tolerance = outcome.tolerance;
        if (outcome.failure) warn("it could not be meshed completely (" + *outcome.failure + ")");
    }
    if (scope.UserBreak()) return;

    StageClock const clock(times.convert);
    PartConverter converter(Document, part.reference->GetUniqueID(), tolerance);
    if (Document.isMesh) converter.setMaterials(Materials);
    auto const linked = Linked.find(part.reference.get());
    bool const isLinked = linked != Linked.end();
    if (Options.entityNames || isLinked) {
        converter.setNamer([&, linked](int number, Id id) {
            if (Options.entityNames || linked->second.contains(number))
                part.reference->NameEntity(L"#" + std::to_wstring(number), id);
        });
    }
    auto const failure = guarded([&] {
        PartStyles styles;
        for (auto const& label : part.labels) styles.collect(label);
        for (auto const& shape : shapes) converter.add(shape, styles);
    });
    if (failure) warn("part of it could not be converted (" + *failure + ")");
    if (auto const dropped = converter.droppedText(); !dropped.empty())
        warn("faces without usable geometry are left out: " + dropped);

    if (Options.exactShapes && !Document.isMesh) {
        auto const lost = guarded([&] { part.reference->SetExactShape(exactShapeOf(shapes, converter)); });
        if (lost) warn("its exact shape could not be kept (" + *lost + ")");
    }
    auto bodies = converter.takeBodies();
    addTessellated(*part.reference, bodies);
    bool const hasColours =
        std::ranges::any_of(bodies, [](BrepBody const& body) { return body.colour.has_value(); });
    PartColours[part.reference.get()] = converter.hasFaceColours() ? OwnColours::Faces
                                        : hasColours               ? OwnColours::Bodies
                                                                   : OwnColours::None;
    HasContents |= !bodies.empty();
    if (Options.graphical) {
        makeGraphical(*part.reference, std::move(bodies), converter.takeSurfaces());
    } else {
        for (auto& body : bodies) part.reference->AddBody(std::move(body));
    }
}

ModelBuilder::OwnColours ModelBuilder::ownColours(ZELReference const& reference) const
{
    if (auto const part = PartColours.find(&reference); part != PartColours.end()) return part->second;
    auto most = OwnColours::None;
    for (auto const& instance : reference.GetInstances())
        most = std::max(most, ownColours(*instance->GetReference()));
    return most;
}

// An instance's colour covers everything below it. In the file it only covers the body of a part, not colours
// of faces, and of an assembly only what has no colour at all.
void ModelBuilder::settleOccurrenceColours()
{
    for (auto const& [instance, style] : OccurrenceColours) {
        auto const& reference = *instance->GetReference();
        auto const strongest = reference.IsPart() ? OwnColours::Bodies : OwnColours::None;
        if (ownColours(reference) > strongest) continue;
        instance->SetColour(style.colour);
        instance->SetAlphaColor(style.alpha);
    }
}
} // namespace NarMetaInfra
