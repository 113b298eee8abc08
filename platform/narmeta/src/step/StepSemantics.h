#pragma once

#include "StepShapeAspects.h"

#include <narmeta/pmi/PMIAnnotation.h>

#include <map>

namespace NarMetaInfra
{
/// What an annotation means, whatever it looks like.
struct StepMeaning {
    enum class Kind { Datum, DatumTarget, Tolerance, Dimension, Roughness };

    int entity = 0;
    Kind kind = Kind::Datum;
    NarMetaPmi::PMIToleranceType tolerance = NarMetaPmi::PMIToleranceType::Unknown;
    double zone = 0; ///< width of a tolerance zone, millimetres
    NarMetaPmi::PMIDimensionType dimension = NarMetaPmi::PMIDimensionType::Unknown;
    NarMetaPmi::PMIDimensionSubType measured = NarMetaPmi::PMIDimensionSubType::Unknown;
    std::optional<NarMetaPmi::PMIDimensionValue> value;
    std::wstring name; ///< given in the file, may be empty
    std::wstring text; ///< in one line
    std::vector<int> aspects;
    int product = 0; ///< product definition; 0 if the file does not say
};

/// Dimensions, tolerances, datums, their targets, and surface textures of a file.
class StepSemantics
{
public:
    StepSemantics(StepEntities const& entities, StepProducts const& products,
                  StepShapeAspects const& aspects);

    std::map<int, StepMeaning> const& all() const { return Meanings; }
    /// The meaning behind a definition that an annotation is tied to: itself, or the datum of a feature. Null
    /// for a plain feature.
    StepMeaning const* behind(int definition) const;

private:
    void readDatums();
    void readTargets();
    void readTolerances();
    void readDimensions();
    void readTextures();
    std::wstring targetSize(std::vector<int> const& parameters) const;
    StepMeaning& add(int entity, StepMeaning::Kind kind);
    std::wstring datumLetters(int reference, int depth = 0) const;
    void readZones();
    std::wstring toleranceText(int tolerance, double width) const;
    std::wstring unitAreaText(int tolerance) const;
    void readSize(int representation, StepMeaning& meaning) const;
    std::wstring dimensionText(int representation, int range, StepMeaning const& meaning) const;
    void readDeviations(std::map<int, int> const& ranges, StepMeaning& meaning) const;

    StepEntities const& Entities;
    StepProducts const& Products;
    StepShapeAspects const& Aspects;
    std::map<int, StepMeaning> Meanings;
    struct Zone {
        std::wstring form;
        double projected = 0; ///< length beyond the feature; 0 if it ends with it
    };
    std::map<int, Zone> Zones; // by tolerance
};
} // namespace NarMetaInfra
