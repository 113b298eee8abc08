#include "ZELRenderTree.h"

namespace ZelVizBase
{

using namespace NarMetaPmi;
using MoraCore::TreeBuilder;
using MoraCore::TreeItemStyles;
using ZELVizCore::EntityType;
using ZELVizCore::ToValue;

namespace
{

std::wstring nameOf(PMIBase const& object)
{
    return object.GetName() + (object.IsHidden() ? L" (hidden)" : L"");
}

std::wstring nameOf(PMIActivatable const& object)
{
    return (object.GetActive() ? L"*" : L"") + nameOf(static_cast<PMIBase const&>(object));
}

/// A visible node keeps the mark that the host gives to new nodes.
void markIfHidden(TreeBuilder& builder, PMIBase const& object)
{
    ZELVizCore::RenderId path;
    if (object.IsHidden() && builder.GetCurrentId(path)) builder.SetItemVisible(false);
}

template <class Member, class StyleOf>
void renderGroup(TreeBuilder& builder, EntityType type, wchar_t const* label,
                 std::vector<std::shared_ptr<Member>> const& members, StyleOf styleOf)
{
    if (members.empty()) return;
    builder.BeginPmiGroup(ToValue(type), label);
    for (auto const& member : members) {
        if (!member) continue;
        builder.BeginItem(member->GetHashedID(), nameOf(*member), styleOf(member));
        markIfHidden(builder, *member);
        builder.EndItem();
    }
    builder.EndPmiGroup();
}

/// One icon for all members of a group.
auto always(TreeItemStyles style)
{
    return [style](auto const&) { return style; };
}

} // namespace

void ZELRenderTree::renderPmi(std::wstring const& pid, PMIContainer const* container)
{
    if (!container) return;
    std::vector<std::shared_ptr<PMIAnnotationSet>> sets;
    if (!container->GetAnnotationSets(pid, sets) && sets.empty()) return;
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginAnnotations(ToValue(EntityType::Annotations), L"Annotations");
    for (auto const& set : sets) {
        if (!set) continue;
        std::wstring name = set->GetName();
        if (!set->GetStandard().empty()) name += L" (" + set->GetStandard() + L") ";
        if (set->IsHidden()) name += L" (hidden)";
        builder.BeginItem(set->GetHashedID(), name, TreeItemStyles::AnnotationSet);
        if (!set->GetViews().empty()) {
            builder.BeginViews(ToValue(EntityType::Views), L"Views");
            for (auto const& view : set->GetViews())
                if (view) renderView(*view);
            builder.EndViews();
        }
        if (!set->GetCaptures().empty()) {
            builder.BeginCaptures(ToValue(EntityType::Captures), L"Captures");
            for (auto const& capture : set->GetCaptures())
                if (capture) renderCapture(*capture);
            builder.EndCaptures();
        }
        builder.EndItem();
    }
    builder.EndAnnotations();
}

void ZELRenderTree::renderView(PMIAnnotationView const& view)
{
    TreeBuilder& builder = getTreeBuilder();
    auto const styleOf = [this](auto const& member) { return getTreeItemStyle(member); };
    builder.BeginView(view.GetHashedID(), nameOf(view));
    markIfHidden(builder, view);
    renderGroup(builder, EntityType::Note, L"Notes", view.GetNotes(), always(TreeItemStyles::Note));
    renderGroup(builder, EntityType::Datum, L"Datums", view.GetDatums(), always(TreeItemStyles::Datum));
    renderGroup(builder, EntityType::Datum, L"DatumTargets", view.GetDatumTargets(),
                always(TreeItemStyles::Datum));
    renderGroup(builder, EntityType::GeometricTolerance, L"GeomTols", view.GetGDTs(), styleOf);
    renderGroup(builder, EntityType::Dimension, L"Dimensions", view.GetDimensions(), styleOf);
    renderGroup(builder, EntityType::Roughness, L"Roughnesses", view.GetRoughnesses(),
                always(TreeItemStyles::Roughness));
    builder.EndView();
}

void ZELRenderTree::renderCapture(PMICapture const& capture)
{
    TreeBuilder& builder = getTreeBuilder();
    builder.BeginCapture(capture.GetHashedID(), nameOf(capture));
    markIfHidden(builder, capture);
    builder.EndCapture();
}

TreeItemStyles ZELRenderTree::getTreeItemStyle(std::shared_ptr<PMIGDT> const& tolerance) const
{
    if (!tolerance) return TreeItemStyles::NoTolerance;
    PMIToleranceType type = PMIToleranceType::Unknown;
    double value = 0;
    tolerance->GetToleranceInfo(type, value);
    switch (type) {
    case PMIToleranceType::Straightness:
        return TreeItemStyles::Straightness;
    case PMIToleranceType::Flatness:
        return TreeItemStyles::Flatness;
    case PMIToleranceType::Circularity:
        return TreeItemStyles::Circularity;
    case PMIToleranceType::Cylindricity:
        return TreeItemStyles::Cylindricity;
    case PMIToleranceType::LineProfile:
        return TreeItemStyles::LineProfile;
    case PMIToleranceType::SurfaceProfile:
        return TreeItemStyles::SurfaceProfile;
    case PMIToleranceType::Angularity:
        return TreeItemStyles::Angularity;
    case PMIToleranceType::Perpendicularity:
        return TreeItemStyles::Perpendicularity;
    case PMIToleranceType::Parallelism:
        return TreeItemStyles::Parallelism;
    case PMIToleranceType::Position:
    case PMIToleranceType::PatternPosition:
    case PMIToleranceType::CompositePosition:
        return TreeItemStyles::Position;
    case PMIToleranceType::Concentricity:
    case PMIToleranceType::Coaxiality:
        return TreeItemStyles::Concentricity;
    case PMIToleranceType::Symmetry:
        return TreeItemStyles::Symmetry;
    case PMIToleranceType::CircularRunout:
        return TreeItemStyles::CircularRunout;
    case PMIToleranceType::TotalRunout:
        return TreeItemStyles::TotalRunout;
    case PMIToleranceType::Unknown:
        break;
    }
    return TreeItemStyles::Tolerance;
}

TreeItemStyles ZELRenderTree::getTreeItemStyle(std::shared_ptr<PMIDimension> const& dimension) const
{
    if (!dimension) return TreeItemStyles::Dimension;
    PMIDimensionType type = PMIDimensionType::Unknown;
    PMIDimensionSubType subType = PMIDimensionSubType::Unknown;
    dimension->GetType(type, subType);
    switch (subType) {
    case PMIDimensionSubType::Angle:
    case PMIDimensionSubType::OrientedAngle:
        return TreeItemStyles::AngularDimension;
    case PMIDimensionSubType::Radius:
    case PMIDimensionSubType::SphericalRadius:
    case PMIDimensionSubType::MinorRadius:
    case PMIDimensionSubType::MajorRadius:
        return TreeItemStyles::RadiusDimension;
    case PMIDimensionSubType::Diameter:
    case PMIDimensionSubType::SphericalDiameter:
    case PMIDimensionSubType::MinorDiameter:
    case PMIDimensionSubType::MajorDiameter:
    case PMIDimensionSubType::ThreadDiameter:
        return TreeItemStyles::DiameterDimension;
    case PMIDimensionSubType::Unknown:
    case PMIDimensionSubType::Distance:
    case PMIDimensionSubType::Length:
    case PMIDimensionSubType::Thickness:
    case PMIDimensionSubType::Depth:
    case PMIDimensionSubType::CurvedDistance:
        break;
    }
    return TreeItemStyles::Dimension;
}

} // namespace ZelVizBase
