#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "PartMesher.h"
#include "StepAnnotations.h"
#include "open_cascade_materials.h"
#include "open_cascade_style.h"

#include <narmeta/infra/ZELProductStructure.h>


namespace NarMetaInfra
{
struct BuildOptions {
    bool graphical = false;
    bool entityNames = false;
    bool exactShapes = false;
    bool occurrenceLooks = true; ///< colours and visibility of single uses
};

/// Seconds spent in the two stages of a build.
struct BuildTimes {
    double mesh = 0.0;
    double convert = 0.0;
};

/// Fills a model from a translated file: first the references and instances, then the contents of the parts.
class ModelBuilder
{
public:
    ModelBuilder(KernelDocument& document, PartMesher& mesher, BuildOptions const& options,
                 ZELProductStructure& model);

    void buildStructure();
    /// Reads the file's annotations. They are told apart from the parts since a part has to name what they
    /// are linked to.
    void readAnnotations();
    /// Once the parts are built.
    void attachAnnotations();
    /// What the file notes about its products.
    void readProperties();
    /// The layers of each product, as properties of its own; after the others.
    void readLayers();
    /// Looks of components inside one use of their assembly only: that use gets an assembly of its own.
    void applyOverrides();
    /// What was met of materials so far, with warnings about images that can't be read.
    void addMaterials(NarMetaVisu::MaterialContainer& container);
    /// Meshes the parts side by side and converts them one after the other; a part that fails stays without
    /// what it could not give, with a warning.
    void buildParts(BuildTimes& times, Message_ProgressRange const& range);
    bool hasContents() const { return HasContents; }

private:
    using ReferencePointer = std::shared_ptr<ZELReference>;
    using InstancePointer = std::shared_ptr<ZELInstance>;

    struct Part {
        std::vector<TDF_Label> labels;
        ReferencePointer reference;
        int faceCount = 0;
    };
    struct OccurrenceColour {
        InstancePointer instance;
        ShapeStyle style;
    };
    /// What the contents of a reference say about colours.
    enum class OwnColours { None, Bodies, Faces };

    void buildRoots(std::vector<TDF_Label> const& roots);
    void addPart(std::vector<TDF_Label> labels, ReferencePointer reference);
    InstancePointer makeInstance(TDF_Label const& component, std::wstring const& ownerPid,
                                 std::wstring const& ownerName);
    ReferencePointer referenceOf(TDF_Label const& label, std::wstring const& ownerName);
    bool isAssembly(TDF_Label const& label) const;
    std::vector<TDF_Label> componentsOf(TDF_Label const& assembly) const;
    std::wstring pidOf(TDF_Label const& label, std::wstring const& name) const;
    std::wstring unique(std::wstring pid);
    void buildPart(Part const& part, BuildTimes& times, Message_ProgressRange const& range);
    /// Triangles that the file has in place of an exact shape.
    void addTessellated(ZELReference const& reference, std::vector<BrepBody>& bodies) const;
    void applyOverride(TDF_Label const& next, InstancePointer const& upper, TDF_Label const& upperComponent,
                       ShapeStyle const& style);
    /// Occurrences that a STEP file hides by their ways down the assemblies.
    void hideUses();
    InstancePointer ownInstance(InstancePointer const& upper, InstancePointer const& shared);
    void settleOccurrenceColours();
    void tieSources();
    void readAnnotations(std::size_t source);
    OwnColours ownColours(ZELReference const& reference) const;

    KernelDocument& Document;
    PartMesher& Mesher;
    BuildOptions Options;
    ZELProductStructure& Model;
    MaterialMaker Materials;
    LabelMap<InstancePointer> Instances; // by component
    Handle(XCAFDoc_ShapeTool) Shapes;
    LabelMap<ReferencePointer> References;
    std::vector<Part> Parts;
    /// What has become of the products and uses of a STEP file, by entity number.
    struct SourceTies {
        std::map<int, ZELReference*> products; ///< null for the model itself
        std::map<int, std::wstring> uses;      ///< PIDs of instances
    };
    std::vector<SourceTies> Ties; // by source
    struct OwnedAnnotations {
        ZELReference* owner = nullptr; ///< null for the model itself
        StepAnnotationSet annotations;
    };
    std::vector<OwnedAnnotations> Annotations;
    std::map<ZELReference const*, std::set<int>> Linked; // entity numbers that annotations speak of
    TDF_Label Top; // the assembly that the model itself stands for; may be null
    std::vector<OccurrenceColour> OccurrenceColours;
    std::unordered_map<ZELReference const*, OwnColours> PartColours;
    std::unordered_map<std::wstring, int> Pids; // and how often each was asked for
    bool HasContents = false;
};
} // namespace NarMetaInfra
