#pragma once

#include <narmeta/Property.h>
#include <narmeta/pmi/PMIBase.h>

#include <optional>
#include <utility>
#include <vector>

namespace NarMetaPmi
{

enum class PMIAnnotationType {
    Any = 0,
    Datum = 1,
    Note = 3,
    Roughness = 5,
    GeometricTolerance = 6,
    Dimension = 7
};

/// The PIDs of the instances down to the reference that holds an entity, and the entity's name in it.
using LinkedEntity = std::pair<std::vector<std::wstring>, std::wstring>;

/// A single annotation, tied to the entities of the model that it speaks of.
class PMIAnnotation : public PMIBase
{
public:
    using PMIBase::PMIBase;

    virtual PMIAnnotationType GetAnnotationType() const = 0;

    void AddLinkedEntity(LinkedEntity entity) { linked_.push_back(std::move(entity)); }
    std::vector<LinkedEntity> const& GetLinkedEntities() const { return linked_; }

    /// What the annotation says, as one line for a tool tip; may be empty.
    void SetText(std::wstring text) { text_ = std::move(text); }
    std::wstring const& GetText() const { return text_; }

    /// What the author noted about the annotation beside its own values.
    void SetUserProperties(NarMeta::Properties properties) { properties_ = std::move(properties); }
    NarMeta::Properties const& GetUserProperties() const { return properties_; }

private:
    std::vector<LinkedEntity> linked_;
    std::wstring text_;
    NarMeta::Properties properties_;
};

/// An annotation of a kind that has no properties of its own.
template <PMIAnnotationType Type, int Variant = 0> class PMISimpleAnnotation : public PMIAnnotation
{
public:
    using PMIAnnotation::PMIAnnotation;
    PMIAnnotationType GetAnnotationType() const override { return Type; }
};

using PMINote = PMISimpleAnnotation<PMIAnnotationType::Note>;
using PMIDatum = PMISimpleAnnotation<PMIAnnotationType::Datum>;
using PMIDatumTarget = PMISimpleAnnotation<PMIAnnotationType::Datum, 1>;
using PMIRoughness = PMISimpleAnnotation<PMIAnnotationType::Roughness>;

enum class PMIToleranceType {
    Unknown = 0,
    Straightness = 1,
    Flatness = 2,
    Circularity = 3,
    Cylindricity = 4,
    LineProfile = 5,
    SurfaceProfile = 6,
    Angularity = 7,
    Perpendicularity = 8,
    Parallelism = 9,
    Position = 10,
    Concentricity = 11,
    Coaxiality = 12,
    Symmetry = 13,
    PatternPosition = 14,
    CompositePosition = 15,
    CircularRunout = 16,
    TotalRunout = 17
};

/// A geometric tolerance.
class PMIGDT : public PMISimpleAnnotation<PMIAnnotationType::GeometricTolerance>
{
public:
    using PMISimpleAnnotation::PMISimpleAnnotation;

    void SetToleranceInfo(PMIToleranceType type, double value) { type_ = type, value_ = value; }
    /// @p value: width of the zone in model units. False if the kind is not known.
    bool GetToleranceInfo(PMIToleranceType& type, double& value) const
    {
        type = type_;
        value = value_;
        return type_ != PMIToleranceType::Unknown;
    }

private:
    PMIToleranceType type_ = PMIToleranceType::Unknown;
    double value_ = 0;
};

enum class PMIDimensionType { Unknown = 0, Size = 1, Location = 2 };

/// What is measured; the tree shows angles, radii and diameters with icons of their own.
enum class PMIDimensionSubType {
    Unknown = 0,
    Distance = 1,
    Length = 2,
    Thickness = 3,
    Depth = 4,
    Angle = 5,
    Radius = 6,
    SphericalRadius = 7,
    MinorRadius = 8,
    MajorRadius = 9,
    Diameter = 10,
    SphericalDiameter = 11,
    MinorDiameter = 12,
    MajorDiameter = 13,
    ThreadDiameter = 14,
    CurvedDistance = 15,
    OrientedAngle = 22
};

/// Size of a dimension: millimetres, or degrees for an angle. The deviations are signed; a dimension without
/// tolerance has none.
struct PMIDimensionValue {
    double nominal = 0;
    std::optional<double> upper;
    std::optional<double> lower;

    bool operator==(PMIDimensionValue const&) const = default;
};

class PMIDimension : public PMISimpleAnnotation<PMIAnnotationType::Dimension>
{
public:
    using PMISimpleAnnotation::PMISimpleAnnotation;

    void SetType(PMIDimensionType type, PMIDimensionSubType subType) { type_ = type, subType_ = subType; }
    void GetType(PMIDimensionType& type, PMIDimensionSubType& subType) const
    {
        type = type_;
        subType = subType_;
    }
    /// Empty if only the picture says how large it is.
    void SetValue(std::optional<PMIDimensionValue> value) { value_ = value; }
    std::optional<PMIDimensionValue> const& GetValue() const { return value_; }

private:
    PMIDimensionType type_ = PMIDimensionType::Unknown;
    PMIDimensionSubType subType_ = PMIDimensionSubType::Unknown;
    std::optional<PMIDimensionValue> value_;
};

} // namespace NarMetaPmi
