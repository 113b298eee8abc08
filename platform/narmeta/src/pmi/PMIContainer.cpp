#include <narmeta/pmi/PMIContainer.h>

#include <set>
#include <type_traits>

namespace NarMetaPmi
{

namespace
{

/// Calls @p see on every set until it gives true.
template <class See> bool AnySet(std::map<std::wstring, PMIContainer::Sets> const& owners, See const& see)
{
    for (auto const& [pid, sets] : owners)
        for (auto const& set : sets)
            if (see(*set)) return true;
    return false;
}

template <class Object, class List, class Test>
bool FindIn(List const& list, Test const& test, std::shared_ptr<Object>& found)
{
    for (auto const& object : list) {
        if (!test(*object)) continue;
        found = object;
        return true;
    }
    return false;
}

wchar_t const* WordFor(PMIAnnotationType type)
{
    switch (type) {
    case PMIAnnotationType::Any:
        break;
    case PMIAnnotationType::Datum:
        return L"Datum";
    case PMIAnnotationType::Note:
        return L"Note";
    case PMIAnnotationType::Roughness:
        return L"Roughness";
    case PMIAnnotationType::GeometricTolerance:
        return L"Geometric tolerance";
    case PMIAnnotationType::Dimension:
        return L"Dimension";
    }
    return L"Annotation";
}

} // namespace

void PMIContainer::AddAnnotationSet(std::wstring const& pid, std::shared_ptr<PMIAnnotationSet> set)
{
    sets_[pid].push_back(std::move(set));
}

void PMIContainer::RenameOwner(std::wstring const& from, std::wstring const& to)
{
    if (auto owner = sets_.extract(from)) {
        owner.key() = to;
        sets_.insert(std::move(owner));
    }
}

bool PMIContainer::GetAnnotationSets(std::wstring const& pid, Sets& sets) const
{
    auto const found = sets_.find(pid);
    if (found == sets_.end()) return false;
    sets.insert(sets.end(), found->second.begin(), found->second.end());
    return true;
}

bool PMIContainer::GetAnnotationView(NarMeta::Id id, std::shared_ptr<PMIAnnotationView>& view) const
{
    return AnySet(sets_, [&](PMIAnnotationSet const& set) {
        return FindIn(
            set.GetViews(), [id](auto const& object) { return object.GetHashedID() == id; }, view);
    });
}

bool PMIContainer::GetAnnotationCapture(NarMeta::Id id, std::shared_ptr<PMICapture>& capture) const
{
    return AnySet(sets_, [&](PMIAnnotationSet const& set) {
        return FindIn(
            set.GetCaptures(), [id](auto const& object) { return object.GetHashedID() == id; }, capture);
    });
}

bool PMIContainer::GetAnnotation(NarMeta::Id id, PMIAnnotationType type,
                                 std::shared_ptr<PMIAnnotation>& annotation) const
{
    auto const matches = [&](PMIAnnotation const& object) {
        return object.GetHashedID() == id &&
               (type == PMIAnnotationType::Any || type == object.GetAnnotationType());
    };
    return AnySet(sets_, [&](PMIAnnotationSet const& set) {
        for (auto const& view : set.GetViews()) {
            auto const& content = view->Content();
            if (FindIn(content.notes, matches, annotation) || FindIn(content.datums, matches, annotation) ||
                FindIn(content.datumTargets, matches, annotation) ||
                FindIn(content.tolerances, matches, annotation) ||
                FindIn(content.dimensions, matches, annotation) ||
                FindIn(content.roughnesses, matches, annotation))
                return true;
        }
        return false;
    });
}

std::vector<NarMeta::Id> PMIContainer::GetHiddenAnnotations() const
{
    std::set<NarMeta::Id> hidden;
    auto const collect = [&](auto const& list) {
        for (auto const& annotation : list)
            if (annotation->IsHidden()) hidden.insert(annotation->GetHashedID());
    };
    for (auto const& [owner, sets] : sets_) {
        for (auto const& set : sets) {
            for (auto const& view : set->GetViews()) {
                auto const& content = view->Content();
                collect(content.notes), collect(content.datums), collect(content.datumTargets);
                collect(content.tolerances), collect(content.dimensions), collect(content.roughnesses);
            }
        }
    }
    return {hidden.begin(), hidden.end()};
}

bool PMIContainer::GetActiveView(std::shared_ptr<PMIAnnotationView>& view) const
{
    return AnySet(sets_, [&](PMIAnnotationSet const& set) {
        return FindIn(
            set.GetViews(), [](auto const& object) { return object.GetActive(); }, view);
    });
}

bool PMIContainer::GetActiveCapture(std::shared_ptr<PMICapture>& capture) const
{
    return AnySet(sets_, [&](PMIAnnotationSet const& set) {
        return FindIn(
            set.GetCaptures(), [](auto const& object) { return object.GetActive(); }, capture);
    });
}

std::wstring PMIContainer::ToolTip(NarMeta::Id id) const
{
    auto const quoted = [](std::wstring kind, std::wstring const& name) {
        return kind + L" \"" + name + L"\"";
    };
    if (std::shared_ptr<PMIAnnotation> annotation; GetAnnotation(id, PMIAnnotationType::Any, annotation)) {
        auto const tip = quoted(WordFor(annotation->GetAnnotationType()), annotation->GetName());
        return annotation->GetText().empty() ? tip : tip + L": " + annotation->GetText();
    }
    if (std::shared_ptr<PMIAnnotationView> view; GetAnnotationView(id, view))
        return quoted(L"View", view->GetName());
    if (std::shared_ptr<PMICapture> capture; GetAnnotationCapture(id, capture))
        return quoted(L"Capture", capture->GetName());
    std::wstring tip;
    AnySet(sets_, [&](PMIAnnotationSet const& set) {
        if (set.GetHashedID() == id) tip = quoted(L"Annotation set", set.GetName());
        return !tip.empty();
    });
    return tip;
}

} // namespace NarMetaPmi
