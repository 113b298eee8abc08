#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "StepEntities.h"
#include "material_details.h"
#include "open_cascade_tessellation.h"

#include <narmeta/io/ZelIO.h>

#include <array>
#include <deque>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <Message_ProgressRange.hxx>
#include <NCollection_DataMap.hxx>
#include <TDF_Label.hxx>
#include <TDF_LabelMapHasher.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_TShape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

class QJsonObject;

namespace NarMetaInfra
{
class PartMesher;

/// What the file says about a reference beyond its shape.
struct ProductMark {
    std::wstring id;   ///< PRODUCT id
    std::wstring name; ///< PRODUCT name
    int number = 0;    ///< entity number of its definition
    std::string
        storageFile;        ///< name of the external file that should hold it, empty if it stands in this one
    bool isMissing = false; ///< that file could not be read
};

/// What the file says about one use of a reference in an assembly.
struct OccurrenceMark {
    std::wstring id;
    std::wstring name;
    int number = 0;
};

template <typename Mark> using LabelMap = NCollection_DataMap<TDF_Label, Mark, TDF_LabelMapHasher>;

/// A STEP file that the model comes from, and the labels made of its products and their occurrences, by
/// entity number.
struct StepSource {
    std::filesystem::path file;
    std::string text;
    bool isReadable = true;
    std::unique_ptr<StepEntities> entities; ///< empty if the text can't be followed
    std::map<int, TDF_Label> products;
    std::map<int, TDF_Label> uses;
    std::vector<std::vector<int>> hiddenUses; ///< ways down the assemblies, by number
};

/// A translated file: the kernel's document and the identities that the document does not keep.
struct KernelDocument {
    KernelDocument();
    ~KernelDocument();
    KernelDocument(KernelDocument const&) = delete;
    KernelDocument& operator=(KernelDocument const&) = delete;

    Handle(XCAFDoc_ShapeTool) shapes() const;
    Handle(XCAFDoc_ColorTool) colors() const;

    Handle(TDocStd_Document) document;
    LabelMap<ProductMark> products;
    LabelMap<OccurrenceMark> occurrences;
    /// Entity number of a solid, shell, face, edge, vertex or free curve, where the file has one.
    std::unordered_map<TopoDS_TShape const*, int> entityNumbers;
    std::unordered_map<TopoDS_TShape const*, std::wstring> solidNames;
    /// Hidden by themselves, beside what the kernel knows.
    std::unordered_set<TopoDS_TShape const*> hiddenShapes;
    /// Matrices of components that the kernel's own placements can't express, for row vectors.
    LabelMap<std::array<float, 16>> placements;

    /// The labels that stand at the top: those found by the reader, else all that nothing refers to.
    std::vector<TDF_Label> rootLabels() const;
    std::vector<TDF_Label> knownRoots;

    bool hasShapes() const { return !rootLabels().empty(); }
    /// Name of a label in the file's own words; empty if it has none, or one that the kernel made up for want
    /// of one.
    std::wstring nameOf(TDF_Label const& label) const;
    /// Shapes on a layer that is switched off become hidden themselves.
    void hideInvisibleLayers();

    /// STEP files by their own entities, for what the kernel does not hand over: the one that was opened,
    /// then those that it refers to. Empty for other formats.
    std::deque<StepSource> stepSources;

    MaterialDetailMap materialDetails;

    /// The file's shapes are triangles by nature.
    bool isMesh = false;
    /// Names are bytes of unknown encoding that the kernel widened one by one.
    bool hasByteNames = false;
    /// Files that were read beside this one; nothing where that can't be told.
    std::optional<std::vector<std::filesystem::path>> otherFiles{std::in_place};
    /// The file's name without folder and extension.
    std::wstring title;
    std::vector<std::string> warnings;
};

/// Seconds of the processor-independent clock spent in the two stages of a translation.
struct LoadTimes {
    double parse = 0.0;
    double transfer = 0.0;
};

/// What a translation has at hand beside the document.
struct LoadSupport {
    PartMesher& mesher; ///< for parts that are complete while others are still translated
    TessellationFineness fineness;
    LoadTimes& times;
};

struct LoadFailure {
    IoOutcome outcome;
    std::string cause; ///< one line for the user
};

/// Nothing on success and after a break by the user. The file's path must be absolute: external references
/// are looked for beside it.
using LoadOutcome = std::optional<LoadFailure>;

LoadOutcome loadStep(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                     Message_ProgressRange const&);
LoadOutcome loadIges(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                     Message_ProgressRange const&);
LoadOutcome loadBrep(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                     Message_ProgressRange const&);
LoadOutcome loadGltf(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                     Message_ProgressRange const&);
LoadOutcome loadObj(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                    Message_ProgressRange const&);
LoadOutcome loadVrml(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                     Message_ProgressRange const&);
LoadOutcome loadStl(std::filesystem::path const&, KernelDocument&, LoadSupport const&,
                    Message_ProgressRange const&);

/// Takes the placements of glTF nodes from the file, since the kernel evens out scales that differ along the
/// axes.
void restoreGltfPlacements(QJsonObject const& source, KernelDocument& document);
} // namespace NarMetaInfra
