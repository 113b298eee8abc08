#include "step_annotation_kinds.h"

#include "step_kinds.h"

namespace NarMetaInfra
{
using namespace NarMetaPmi;

namespace
{
wchar_t const* wordFor(StepMeaning::Kind kind)
{
    switch (kind) {
    case StepMeaning::Kind::Datum:
        return L"Datum";
    case StepMeaning::Kind::DatumTarget:
        return L"Datum target";
    case StepMeaning::Kind::Tolerance:
        return L"Tolerance";
    case StepMeaning::Kind::Dimension:
        return L"Dimension";
    case StepMeaning::Kind::Roughness:
        break;
    }
    return L"Roughness";
}

template <class Annotation>
AnyAnnotation described(std::shared_ptr<Annotation> made, StepMeaning const& meaning)
{
    made->SetText(meaning.text);
    return made;
}
} // namespace

PMIAnnotation& base(AnyAnnotation const& annotation)
{
    return *std::visit([](auto const& kind) -> PMIAnnotation* { return kind.get(); }, annotation);
}

void addTo(PMIAnnotationView& view, AnyAnnotation const& annotation)
{
    struct Sorter {
        PMIAnnotationView::Members& to;
        void operator()(std::shared_ptr<PMINote> const& x) { to.notes.push_back(x); }
        void operator()(std::shared_ptr<PMIDatum> const& x) { to.datums.push_back(x); }
        void operator()(std::shared_ptr<PMIDatumTarget> const& x) { to.datumTargets.push_back(x); }
        void operator()(std::shared_ptr<PMIGDT> const& x) { to.tolerances.push_back(x); }
        void operator()(std::shared_ptr<PMIDimension> const& x) { to.dimensions.push_back(x); }
        void operator()(std::shared_ptr<PMIRoughness> const& x) { to.roughnesses.push_back(x); }
    };
    std::visit(Sorter{view.Content()}, annotation);
}

AnyAnnotation makeAnnotation(StepMeaning const& meaning, NarMeta::Id id, std::wstring name)
{
    if (name.empty()) name = meaning.name;
    if (name.empty()) name = wordFor(meaning.kind) + (meaning.text.empty() ? L"" : L" " + meaning.text);
    switch (meaning.kind) {
    case StepMeaning::Kind::Datum:
        return described(std::make_shared<PMIDatum>(id, name), meaning);
    case StepMeaning::Kind::DatumTarget:
        return described(std::make_shared<PMIDatumTarget>(id, name), meaning);
    case StepMeaning::Kind::Roughness:
        return described(std::make_shared<PMIRoughness>(id, name), meaning);
    case StepMeaning::Kind::Tolerance: {
        auto tolerance = std::make_shared<PMIGDT>(id, name);
        tolerance->SetToleranceInfo(meaning.tolerance, meaning.zone);
        return described(std::move(tolerance), meaning);
    }
    case StepMeaning::Kind::Dimension:
        break;
    }
    auto dimension = std::make_shared<PMIDimension>(id, name);
    dimension->SetType(meaning.dimension, meaning.measured);
    dimension->SetValue(meaning.value);
    return described(std::move(dimension), meaning);
}

AnyAnnotation makeAnnotation(std::string_view pictureName, NarMeta::Id id, std::wstring const& name)
{
    auto const kind = stepPictureKind(pictureName);
    switch (kind.type) {
    case PMIAnnotationType::Datum:
        if (kind.isTarget) return std::make_shared<PMIDatumTarget>(id, name);
        return std::make_shared<PMIDatum>(id, name);
    case PMIAnnotationType::Roughness:
        return std::make_shared<PMIRoughness>(id, name);
    case PMIAnnotationType::GeometricTolerance: {
        auto tolerance = std::make_shared<PMIGDT>(id, name);
        tolerance->SetToleranceInfo(kind.tolerance, 0.0);
        return tolerance;
    }
    case PMIAnnotationType::Dimension: {
        auto dimension = std::make_shared<PMIDimension>(id, name);
        bool const isAngle = pictureName.find("angular") != pictureName.npos;
        bool const isRadius = pictureName.find("radial") != pictureName.npos;
        dimension->SetType(PMIDimensionType::Unknown,
                           stepMeasured(isRadius ? "radius" : pictureName, isAngle));
        return dimension;
    }
    case PMIAnnotationType::Any:
    case PMIAnnotationType::Note:
        break;
    }
    return std::make_shared<PMINote>(id, name);
}
} // namespace NarMetaInfra
