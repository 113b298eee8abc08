#include "StepAnnotations.h"

#include "StepCallouts.h"
#include "StepVisibility.h"
#include "step_annotation_kinds.h"
#include "step_kinds.h"
#include "step_picture_nodes.h"

#include <algorithm>

namespace NarMetaInfra
{
namespace
{
using namespace NarMetaPmi;

constexpr wchar_t const* WithoutView = L"Without view";

class AnnotationReader
{
public:
    AnnotationReader(StepEntities const& entities, int root, StepTies const& ties)
        : Entities(entities),
          Root(root),
          Ties(ties),
          Products(entities),
          Aspects(entities, Products),
          Semantics(entities, Products, Aspects),
          Styles(entities),
          Visibility(entities, Products),
          Pictures(entities, Styles),
          Drawings(entities, Products),
          Views(entities, Products, Drawings),
          Properties(entities),
          Callouts(entities, Properties)
    {
    }

    std::vector<StepAnnotationSet> read()
    {
        // A place held for an annotation counts only if nothing else shows what it means.
        std::vector<StepDrawn const*> empty;
        for (auto const& drawn : Drawings.drawn()) {
            if (!Callouts.isAnnotation(drawn.item)) continue;
            StepGeometry const geometry(Entities, drawn.context);
            auto const picture = Pictures.of(drawn.item, geometry, drawn.place.frame);
            if (picture.isEmpty())
                empty.push_back(&drawn);
            else
                readItem(drawn, picture);
        }
        for (auto const* const drawn : empty) readItem(*drawn, {});
        for (auto const& [entity, meaning] : Semantics.all()) readUndrawn(entity, meaning);
        auto const* const active = activeView();
        for (auto const& view : Views.saved()) addSaved(view, &view == active);
        addUnsaved();
        std::vector<StepAnnotationSet> sets;
        for (auto& [product, owned] : Owners)
            if (!owned.made.set->GetViews().empty()) sets.push_back(std::move(owned.made));
        return sets;
    }

private:
    /// What stands in a file for one annotation of the model.
    struct Entry {
        int item = 0; ///< what drawings hold; 0 if no drawing shows it
        AnyAnnotation annotation;
        bool isSaved = false; ///< a saved view shows it
    };
    struct Owned {
        StepOwner owner;
        StepAnnotationSet made;
        std::vector<Entry> entries;
    };

    void readItem(StepDrawn const& drawn, StepPicture const& picture)
    {
        auto const item = drawn.item;
        std::vector<StepMeaning const*> meanings;
        std::vector<int> aspects;
        int product = 0;
        for (auto const& [definition, isMeaning] : Callouts.definitionsOf(item)) {
            auto const* const meaning = meaningOf(item, definition, isMeaning);
            if (meaning && std::ranges::find(meanings, meaning) == meanings.end())
                meanings.push_back(meaning);
            if (product == 0) product = meaning ? meaning->product : Products.ownerOf(definition);
            if (!meaning) aspects.push_back(definition);
        }
        bool const isKnown = std::ranges::all_of(
            meanings, [&](auto const* meaning) { return Drawn.contains(meaning->entity); });
        if (picture.isEmpty() && isKnown) return;
        // Its coordinates are those of the drawing, whatever it speaks of.
        auto& owned = ownerFor(Ties.ownerOf(drawn.place.product) ? drawn.place.product : product);
        auto const name = Callouts.nameOf(item);
        auto id = NarMeta::HashId(owned.owner.id, "annotation", static_cast<NarMeta::Id>(item));
        if (int const mapping = drawn.place.mapping; mapping != 0)
            id = NarMeta::HashId(id, "mapping", static_cast<NarMeta::Id>(mapping));
        auto const first = owned.entries.size();
        if (meanings.empty()) {
            auto const pictureName = Callouts.pictureNameOf(item);
            auto const shown = name.empty() ? decodeStepText(pictureName) : name;
            add(owned, item, makeAnnotation(pictureName, id, shown), aspects);
            base(owned.entries.back().annotation).SetText(textOf(item, picture));
        }
        for (auto const* const meaning : meanings) {
            auto const number = static_cast<NarMeta::Id>(meaning->entity);
            bool const isFirst = meaning == meanings.front();
            auto const ownId = isFirst ? id : NarMeta::HashId(id, "meaning", number);
            addMeaning(owned, item, *meaning, ownId, isFirst ? name : std::wstring(),
                       isFirst ? aspects : std::vector<int>());
            Drawn.insert(meaning->entity);
        }
        if (isHidden(item))
            for (auto i = first; i < owned.entries.size(); ++i)
                base(owned.entries[i].annotation).SetHidden(true);
        if (!picture.isEmpty())
            addPicture(owned, makeStepPicture(picture, id, base(owned.entries[first].annotation).GetName()));
    }

    // What a viewer has to set is there to be read, unlike strokes.
    std::wstring textOf(int item, StepPicture const& picture) const
    {
        auto text = Callouts.textOf(item);
        if (!text.empty()) return text;
        for (auto const& drawn : picture.texts) text += (text.empty() ? L"" : L" ") + drawn.words;
        return text;
    }

    // Annotations are tied to the features that they speak of as well as to what they mean, and a feature may
    // happen to be that of a datum.
    StepMeaning const* meaningOf(int item, int definition, bool isMeaning) const
    {
        auto const* const meaning = Semantics.behind(definition);
        if (!meaning || meaning->entity == definition || isMeaning) return meaning;
        return stepPictureKind(Callouts.pictureNameOf(item)).type == PMIAnnotationType::Datum ? meaning
                                                                                              : nullptr;
    }

    bool isHidden(int item) const
    {
        return Visibility.isHidden(item) || std::ranges::any_of(Callouts.contentsOf(item), [&](int content) {
                   return Visibility.isHidden(content);
               });
    }

    void readUndrawn(int entity, StepMeaning const& meaning)
    {
        if (Drawn.contains(entity)) return;
        auto& owned = ownerFor(meaning.product);
        auto const id = NarMeta::HashId(owned.owner.id, "annotation", static_cast<NarMeta::Id>(entity));
        addMeaning(owned, 0, meaning, id, {}, {});
    }

    void addMeaning(Owned& owned, int item, StepMeaning const& meaning, NarMeta::Id id, std::wstring name,
                    std::vector<int> aspects)
    {
        aspects.insert(aspects.begin(), meaning.aspects.begin(), meaning.aspects.end());
        add(owned, item, makeAnnotation(meaning, id, std::move(name)), aspects);
        base(owned.entries.back().annotation).SetUserProperties(propertiesOf(item, meaning.entity));
    }

    void add(Owned& owned, int item, AnyAnnotation annotation, std::vector<int> const& aspects)
    {
        std::set<StepShapeUse> shapes;
        for (int const aspect : aspects)
            for (auto& use : Aspects.shapesOf(aspect)) shapes.insert(std::move(use));
        for (auto const& use : shapes) addLinks(owned, use, base(annotation));
        if (item != 0) Items.insert(item);
        if (item != 0) base(annotation).SetUserProperties(propertiesOf(item, 0));
        owned.entries.push_back({item, std::move(annotation)});
    }

    // Every place of the geometry below the owner of the annotation, through the uses that are meant.
    void addLinks(Owned& owned, StepShapeUse const& use, PMIAnnotation& annotation) const
    {
        auto const holder = use.product == 0 ? owned.made.product : use.product;
        auto const name = L"#" + std::to_wstring(use.shape);
        for (auto const& way : Products.waysDown(owned.made.product, holder, use.through)) {
            std::vector<std::wstring> pids;
            for (int const step : way) pids.push_back(Ties.pidOf(step));
            if (std::ranges::find(pids, std::wstring()) != pids.end()) continue;
            annotation.AddLinkedEntity({std::move(pids), name});
            owned.made.linked[holder].insert(use.shape);
        }
    }

    NarMeta::Properties propertiesOf(int item, int meaning) const
    {
        NarMeta::Properties properties;
        for (int const entity : {item, meaning})
            if (entity != 0) std::ranges::move(Properties.of(entity), std::back_inserter(properties));
        return properties;
    }

    void addPicture(Owned& owned, std::shared_ptr<NarMetaVisu::PmiRep> picture)
    {
        using NarMetaVisu::Node, NarMetaVisu::NodeType;
        if (!owned.made.pictures)
            owned.made.pictures = std::make_shared<Node>(NodeType::Annotations, L"annotations");
        auto leaf = std::make_shared<Node>(NodeType::Annotations);
        leaf->SetPMI(std::move(picture));
        owned.made.pictures->AddChild(std::move(leaf));
    }

    Owned& ownerFor(int product)
    {
        auto owner = product == 0 ? std::nullopt : Ties.ownerOf(product);
        if (!owner) {
            product = Root;
            owner = Ties.ownerOf(Root);
        }
        auto& owned = Owners[product];
        if (!owned.made.set) {
            owned.owner = owner.value_or(StepOwner());
            owned.made.product = product;
            owned.made.set = std::make_shared<PMIAnnotationSet>(
                NarMeta::HashId(owned.owner.id, "annotation set", 0), L"Annotation set");
            owned.made.set->SetStandard(standard());
        }
        return owned;
    }

    // The drawing standard is a product of its own to which the file's documents refer.
    std::wstring standard() const
    {
        for (int const formation : Entities.ofKind("PRODUCT_DEFINITION_FORMATION")) {
            auto const name = Entities.argument(formation, 0).words();
            if (name.starts_with(L"ASME Y14.5") || name.starts_with(L"ISO 1101") ||
                name.starts_with(L"ISO 16792"))
                return name;
        }
        return {};
    }

    // The one marked by the file; else, where annotations are switched off, the one whose annotations are on.
    StepView const* activeView() const
    {
        auto const& views = Views.saved();
        auto found = std::ranges::find_if(views, [](StepView const& view) { return view.isDefault; });
        if (found != views.end()) return &*found;
        std::set<int> shown;
        bool hasHidden = false;
        for (auto const& [product, owned] : Owners) {
            for (auto const& entry : owned.entries) {
                bool const isOff = base(entry.annotation).IsHidden();
                hasHidden |= isOff;
                if (entry.item != 0 && !isOff) shown.insert(entry.item);
            }
        }
        found = std::ranges::find_if(views, [&](StepView const& view) {
            std::set<int> own;
            for (int const item : view.items)
                if (Items.contains(item)) own.insert(item);
            return own == shown;
        });
        return hasHidden && found != views.end() ? &*found : nullptr;
    }

    // A view of a product is its own, and may show annotations of others in it. Without a product it is
    // a view of each that has annotations in it.
    void addSaved(StepView const& view, bool active)
    {
        std::set<int> const items(view.items.begin(), view.items.end());
        if (Ties.ownerOf(view.product)) return addView(ownerFor(view.product), view, items, active);
        bool isShown = false;
        for (auto& [product, owned] : Owners) {
            if (membersOf(owned, items).empty()) continue;
            isShown = true;
            addView(owned, view, items, active);
        }
        if (!isShown) addView(ownerFor(0), view, items, active);
    }

    static std::vector<NarMeta::Id> membersOf(Owned const& owned, std::set<int> const& items)
    {
        std::vector<NarMeta::Id> members;
        for (auto const& entry : owned.entries)
            if (items.contains(entry.item)) members.push_back(base(entry.annotation).GetHashedID());
        return members;
    }

    void addView(Owned& owned, StepView const& view, std::set<int> const& items, bool active)
    {
        auto const number = static_cast<NarMeta::Id>(view.model);
        auto made =
            std::make_shared<PMIAnnotationView>(NarMeta::HashId(owned.owner.id, "view", number), view.name);
        for (auto& entry : owned.entries) {
            if (!items.contains(entry.item)) continue;
            entry.isSaved = true;
            addTo(*made, entry.annotation);
        }
        made->SetCamera(view.camera);
        made->SetActive(active);
        owned.made.set->AddView(made);
        auto members = membersOf(owned, items);
        if (Ties.ownerOf(view.product))
            for (auto const& [product, other] : Owners)
                if (&other != &owned) std::ranges::copy(membersOf(other, items), std::back_inserter(members));
        auto capture =
            std::make_shared<PMICapture>(NarMeta::HashId(owned.owner.id, "capture", number), view.name);
        capture->SetCamera(view.camera);
        capture->SetActive(active);
        capture->SetAnnotationIds(std::move(members));
        capture->SetClippingPlanes(view.clippings);
        capture->SetVisibleReferences(visibleIn(view, owned));
        owned.made.set->AddCapture(std::move(capture));
    }

    // A view that draws the shape of its owner draws all of it.
    std::vector<std::wstring> visibleIn(StepView const& view, Owned const& owned) const
    {
        std::vector<std::wstring> pids;
        for (int const product : view.products) {
            if (product == owned.made.product) return {};
            if (auto const owner = Ties.ownerOf(product)) pids.push_back(owner->pid);
        }
        return pids;
    }

    // What no saved view shows stands by annotation planes, and the rest together.
    void addUnsaved()
    {
        for (auto& [product, owned] : Owners) {
            std::map<int, std::shared_ptr<PMIAnnotationView>> views;
            for (auto const& entry : owned.entries) {
                if (entry.isSaved) continue;
                auto const* const plane = entry.item == 0 ? nullptr : Drawings.planeOf(entry.item);
                auto& view = views[plane ? plane->entity : 0];
                if (!view) {
                    auto const number = static_cast<NarMeta::Id>(plane ? plane->entity : 0);
                    view = std::make_shared<PMIAnnotationView>(
                        NarMeta::HashId(owned.owner.id, "plane", number),
                        plane && !plane->name.empty() ? plane->name
                        : plane                       ? L"Plane #" + std::to_wstring(plane->entity)
                                                      : std::wstring(WithoutView));
                    if (plane) view->SetCamera(plane->camera);
                }
                addTo(*view, entry.annotation);
            }
            for (auto& [plane, view] : views) owned.made.set->AddView(std::move(view));
        }
    }

    StepEntities const& Entities;
    int Root;
    StepTies const& Ties;
    StepProducts Products;
    StepShapeAspects Aspects;
    StepSemantics Semantics;
    StepStyles Styles;
    StepVisibility Visibility;
    StepPictures Pictures;
    StepDrawings Drawings;
    StepViews Views;
    StepProperties Properties;
    StepCallouts Callouts;
    std::set<int> Drawn;         // meanings that an annotation shows
    std::set<int> Items;         // drawn entities that became annotations
    std::map<int, Owned> Owners; // by product definition
};
} // namespace

std::vector<StepAnnotationSet> readStepAnnotations(StepEntities const& entities, int root,
                                                   StepTies const& ties)
{
    return AnnotationReader(entities, root, ties).read();
}

bool hasStepAnnotations(StepEntities const& entities)
{
    static constexpr std::string_view Keywords[] = {"DRAUGHTING_MODEL",
                                                    "DRAUGHTING_CALLOUT",
                                                    "DATUM",
                                                    "DATUM_TARGET",
                                                    "PLACED_DATUM_TARGET_FEATURE",
                                                    "DIMENSIONAL_SIZE",
                                                    "DIMENSIONAL_LOCATION",
                                                    "ANGULAR_SIZE",
                                                    "ANGULAR_LOCATION",
                                                    "GEOMETRIC_TOLERANCE",
                                                    "SURFACE_TEXTURE_REPRESENTATION"};
    return std::ranges::any_of(Keywords, [&](auto keyword) { return !entities.ofKind(keyword).empty(); });
}
} // namespace NarMetaInfra
