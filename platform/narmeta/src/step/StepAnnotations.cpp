#include "StepAnnotations.h"

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
    AnnotationReader(StepEntities const& entities, int root,
                     std::function<std::optional<StepOwner>(int)> const& ownerOf)
        : Entities(entities),
          Root(root),
          OwnerOf(ownerOf),
          Aspects(entities),
          Semantics(entities, Aspects),
          Styles(entities),
          Pictures(entities, Styles),
          Views(entities, Aspects),
          Properties(entities)
    {
    }

    std::vector<StepAnnotationSet> read()
    {
        readAssociations();
        // A place held for an annotation counts only if nothing else shows what it means.
        std::vector<int> places;
        for (auto const& [item, context] : Views.drawn()) {
            if (!isAnnotation(item)) continue;
            auto const picture = Pictures.of(item, StepGeometry(Entities, context));
            if (picture.isEmpty())
                places.push_back(item);
            else
                readItem(item, picture);
        }
        for (int const item : places) readItem(item, {});
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

    bool isAnnotation(int item) const
    {
        auto const kind = Entities.keywordOf(item);
        if (Entities.isKind(item, "DRAUGHTING_CALLOUT")) return true;
        bool const isOccurrence =
            kind.ends_with("_OCCURRENCE") || Entities.isKind(item, "ANNOTATION_OCCURRENCE");
        return isOccurrence && !Callouts.contains(item);
    }

    void readAssociations()
    {
        for (int const callout : Entities.ofKind("DRAUGHTING_CALLOUT"))
            for (int const content : Entities.argument(callout, 1, "DRAUGHTING_CALLOUT", 0).entities())
                Callouts.emplace(content, callout);
        for (auto const* const keyword :
             {"DRAUGHTING_MODEL_ITEM_ASSOCIATION", "DRAUGHTING_MODEL_ITEM_ASSOCIATION_WITH_PLACEHOLDER"}) {
            for (int const link : Entities.ofKind(keyword)) {
                auto const definition = Entities.argument(link, 2).entity();
                bool const isMeaning = !Entities.argument(link, 0).text.empty();
                for (int item : Entities.argument(link, 4).entities()) {
                    if (auto const callout = Callouts.find(item); callout != Callouts.end())
                        item = callout->second;
                    Definitions[item].emplace_back(definition, isMeaning);
                }
            }
        }
    }

    void readItem(int item, StepPicture const& picture)
    {
        std::vector<StepMeaning const*> meanings;
        std::vector<int> aspects;
        int product = 0;
        for (auto const& [definition, isMeaning] : Definitions[item]) {
            auto const* const meaning = meaningOf(item, definition, isMeaning);
            if (meaning && std::ranges::find(meanings, meaning) == meanings.end())
                meanings.push_back(meaning);
            if (product == 0) product = meaning ? meaning->product : Aspects.productOf(definition);
            if (!meaning) aspects.push_back(definition);
        }
        bool const isKnown = std::ranges::all_of(
            meanings, [&](auto const* meaning) { return Drawn.contains(meaning->entity); });
        if (picture.isEmpty() && isKnown) return;
        auto& owned = ownerFor(product);
        auto const name = nameOf(item);
        auto const id = NarMeta::HashId(owned.owner.id, "annotation", static_cast<NarMeta::Id>(item));
        auto const first = owned.entries.size();
        if (meanings.empty()) {
            auto const pictureName = pictureNameOf(item);
            auto const shown = name.empty() ? decodeStepText(pictureName) : name;
            add(owned, item, makeAnnotation(pictureName, id, shown), aspects);
            base(owned.entries.back().annotation).SetText(noteText(item));
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

    // Annotations are tied to the features that they speak of as well as to what they mean, and a feature may
    // happen to be that of a datum.
    StepMeaning const* meaningOf(int item, int definition, bool isMeaning) const
    {
        auto const* const meaning = Semantics.behind(definition);
        if (!meaning || meaning->entity == definition || isMeaning) return meaning;
        return stepPictureKind(pictureNameOf(item)).type == PMIAnnotationType::Datum ? meaning : nullptr;
    }

    bool isHidden(int item) const
    {
        auto const contents = Entities.argument(item, 1, "DRAUGHTING_CALLOUT", 0).entities();
        return Styles.isHidden(item) ||
               std::ranges::any_of(contents, [&](int content) { return Styles.isHidden(content); });
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
        std::set<int> shapes;
        for (int const aspect : aspects)
            for (int const shape : Aspects.shapesOf(aspect)) shapes.insert(shape);
        for (int const shape : shapes) base(annotation).AddLinkedEntity({{}, L"#" + std::to_wstring(shape)});
        owned.made.linked.merge(shapes);
        if (item != 0) Items.insert(item);
        if (item != 0) base(annotation).SetUserProperties(propertiesOf(item, 0));
        owned.entries.push_back({item, std::move(annotation)});
    }

    // Notes say what they say in a property of the drawing, or of what it is tied to.
    std::wstring noteText(int item)
    {
        auto properties = Properties.of(item);
        for (auto const& [definition, isMeaning] : Definitions[item])
            std::ranges::move(Properties.valuesOf(definition), std::back_inserter(properties));
        for (auto const& [name, value] : properties)
            if (name.find(L"text") != name.npos || name.find(L"string") != name.npos) return value;
        return {};
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
        auto owner = product == 0 ? std::nullopt : OwnerOf(product);
        if (!owner) {
            product = Root;
            owner = OwnerOf(Root);
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

    std::wstring nameOf(int item) const
    {
        auto name = Entities.argument(item, 0, "DRAUGHTING_CALLOUT", 0).words();
        if (Entities.isKind(item, "REPRESENTATION_ITEM"))
            name = Entities.argument(item, 0, "REPRESENTATION_ITEM", 0).words();
        return name;
    }

    // The name of what an occurrence draws tells its kind, by the users' convention.
    std::string_view pictureNameOf(int item) const
    {
        int occurrence = item;
        if (Entities.isKind(item, "DRAUGHTING_CALLOUT")) {
            auto const contents = Entities.argument(item, 1, "DRAUGHTING_CALLOUT", 0).entities();
            if (!contents.empty()) occurrence = contents.front();
        }
        auto const drawn = Entities.argument(occurrence, 2, "STYLED_ITEM", 1).entity();
        auto const name = Entities.argument(drawn, 0, "REPRESENTATION_ITEM", 0).text;
        return name.empty() ? Entities.argument(occurrence, 0, "REPRESENTATION_ITEM", 0).text : name;
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

    void addSaved(StepView const& view, bool active)
    {
        std::set<int> const items(view.items.begin(), view.items.end());
        bool isEmpty = true;
        for (auto& [product, owned] : Owners)
            if (fillView(owned, view, items, active, false)) isEmpty = false;
        if (isEmpty) fillView(ownerFor(0), view, items, active, true);
    }

    // Nothing is made of a view without annotations unless `always`.
    bool fillView(Owned& owned, StepView const& view, std::set<int> const& items, bool active, bool always)
    {
        std::vector<NarMeta::Id> members;
        auto const number = static_cast<NarMeta::Id>(view.model);
        auto made =
            std::make_shared<PMIAnnotationView>(NarMeta::HashId(owned.owner.id, "view", number), view.name);
        for (auto& entry : owned.entries) {
            if (entry.item == 0 || !items.contains(entry.item)) continue;
            entry.isSaved = true;
            addTo(*made, entry.annotation);
            members.push_back(base(entry.annotation).GetHashedID());
        }
        if (members.empty() && !always) return false;
        made->SetCamera(view.camera);
        made->SetActive(active);
        owned.made.set->AddView(made);
        auto capture =
            std::make_shared<PMICapture>(NarMeta::HashId(owned.owner.id, "capture", number), view.name);
        capture->SetCamera(view.camera);
        capture->SetActive(active);
        capture->SetAnnotationIds(std::move(members));
        capture->SetClippingPlanes(view.clippings);
        capture->SetVisibleReferences(visibleIn(view, owned));
        owned.made.set->AddCapture(std::move(capture));
        return true;
    }

    // A view that draws the shape of its owner draws all of it.
    std::vector<std::wstring> visibleIn(StepView const& view, Owned const& owned) const
    {
        std::vector<std::wstring> pids;
        for (int const product : view.products) {
            if (product == owned.made.product) return {};
            if (auto const owner = OwnerOf(product)) pids.push_back(owner->pid);
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
                auto const* const plane = entry.item == 0 ? nullptr : Views.planeOf(entry.item);
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
    std::function<std::optional<StepOwner>(int)> const& OwnerOf;
    StepShapeAspects Aspects;
    StepSemantics Semantics;
    StepStyles Styles;
    StepPictures Pictures;
    StepViews Views;
    StepProperties Properties;
    std::unordered_map<int, int> Callouts; // by what they hold
    std::unordered_map<int, std::vector<std::pair<int, bool>>>
        Definitions;             // of annotations; whether for their meaning
    std::set<int> Drawn;         // meanings that an annotation shows
    std::set<int> Items;         // drawn entities that became annotations
    std::map<int, Owned> Owners; // by product definition
};
} // namespace

std::vector<StepAnnotationSet>
readStepAnnotations(StepEntities const& entities, int root,
                    std::function<std::optional<StepOwner>(int product)> const& ownerOf)
{
    return AnnotationReader(entities, root, ownerOf).read();
}

bool hasStepAnnotations(StepEntities const& entities)
{
    static constexpr std::string_view Keywords[] = {
        "DRAUGHTING_MODEL", "DRAUGHTING_CALLOUT",   "DATUM",
        "DIMENSIONAL_SIZE", "DIMENSIONAL_LOCATION", "GEOMETRIC_TOLERANCE"};
    return std::ranges::any_of(Keywords, [&](auto keyword) { return !entities.ofKind(keyword).empty(); });
}
} // namespace NarMetaInfra
