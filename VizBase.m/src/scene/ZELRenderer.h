#pragma once

#include "ZELObjectMapper.h"
#include "ZELSegmentTagger.h"
#include "hps_api.h"
#include "model_api.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace ZelVizBase
{

class ZELDocument;

/// Builds the scene graph of a product structure in the document's scene model.
///
/// Geometry lives once: each reference has one segment below the model's library key, and the product tree
/// below the model's own segment has one small segment per instance (matrix, colour, flags) that includes it.
///
///   model segment
///     {PID of the product}                  tag REFERENCE, this is GetRootKey()
///       {PID of a root instance}            tag INSTANCE; includes its reference, or holds child instances
///   library segment
///     partreferences/{concrete renderer's}  tag REFERENCE; "visu", "pmi", "drw", "brep"
///     subassemblyreferences/(unnamed)       tag REFERENCE; below it the instances of the assembly
///
/// A build stops at the first false, with what stands left standing until Flush(). Contents that bad data
/// makes impossible (an assembly inside itself, nodes nested without end, indices outside their arrays) are
/// left out and reported to the session once per build.
class ZELRenderer
{
public:
    explicit ZELRenderer(ZELDocument* document = nullptr);
    ZELRenderer(ZELRenderer const&) = default;
    ZELRenderer& operator=(ZELRenderer const&) = default;
    virtual ~ZELRenderer();

    void SetDocument(ZELDocument* document);

    /// Empties the scene, the maps and the materials. The root key, the portfolio and its line patterns stay.
    void Flush();

    bool BuildSceneGraphBrep(NarMetaInfra::ZELProductStructure const* structure);
    /// As BuildSceneGraphBrep, with the materials of the model and "default_style" on the model's segment.
    bool BuildSceneGraphVisu(NarMetaInfra::ZELProductStructure const* structure);

    void Hide(HPS::SegmentKey& segment);
    void Show(HPS::SegmentKey& segment);

    HPS::SegmentKey GetRootKey() const { return RootKey; }
    HPS::PortfolioKey const& GetPortfolioKey() const { return PortfolioKey; }
    std::shared_ptr<ZELObjectMapper> const& GetObjectMapper() const { return ObjectMapper; }

protected:
    /// Makes and fills a segment below `partReferences`; on true `segment` is alive and gets the tag.
    virtual bool initPartReference(HPS::SegmentKey& partReferences,
                                   std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                                   HPS::SegmentKey& segment) = 0;
    /// `segment` becomes the parent of the assembly's instance segments, at or below `assemblySegment`.
    virtual bool initAssemblyReference(HPS::SegmentKey& assemblySegment,
                                       std::shared_ptr<NarMetaInfra::ZELReference>& reference,
                                       HPS::SegmentKey& segment) = 0;
    virtual bool initPartReferences(NarMetaInfra::ZELProductStructure const* structure);
    virtual bool initAssemblyReferences(HPS::SegmentKey& parent,
                                        std::shared_ptr<NarMetaInfra::ZELInstance>& instance);
    virtual bool initAssemblyReferences(NarMetaInfra::ZELProductStructure const* structure);
    virtual bool buildProductSceneGraph(HPS::SegmentKey& parent,
                                        std::shared_ptr<NarMetaInfra::ZELInstance>& instance,
                                        HPS::SegmentKey& segment);
    virtual bool buildProductSceneGraph(NarMetaInfra::ZELProductStructure const* structure);

    // Instances
    void setInstanceProperties(HPS::SegmentKey& segment,
                               std::shared_ptr<NarMetaInfra::ZELInstance>& instance);
    void handleHiddenFlag(std::shared_ptr<NarMetaInfra::ZELInstance>& instance, HPS::SegmentKey& segment);
    void handleSuppressedFlag(std::shared_ptr<NarMetaInfra::ZELInstance>& instance, HPS::SegmentKey& segment);
    /// The body disappears below each segment that carries the condition "hide_#" and this id.
    void enableConditionalHideBodyNode(HPS::SegmentKey& segment, unsigned long long bodyId);

    // Visualisation nodes
    /// Product level: the segment takes geometry and PMI of the product itself.
    bool renderVisuData(NarMetaInfra::ZELProductStructure const* structure, HPS::SegmentKey& segment,
                        std::shared_ptr<NarMetaVisu::SGContainer> const& container);
    /// Reference level: makes "visu", "pmi" and "drw" below the reference's segment.
    bool renderVisuData(HPS::SegmentKey& segment,
                        std::shared_ptr<NarMetaInfra::ZELReference> const& reference,
                        std::shared_ptr<NarMetaVisu::SGContainer> const& container);
    bool renderVisuNode(HPS::SegmentKey& parent, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderVisuDrawingNode(HPS::SegmentKey& parent, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderLeafVisuNode(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);
    void setNodeProperties(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderMesh(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderWire(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderPMI(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);
    bool renderPointSet(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node);

    // Geometry of one representation
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::MeshRep> const& mesh);
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::WireRep> const& wire);
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::EdgeRep> const& edge);
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::PointSetRep> const& pointSet);
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::PmiRep> const& pmi);
    void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                std::shared_ptr<NarMetaVisu::TextRep> const& text);
    /// Texture coordinates are left out here; a concrete renderer may take them along.
    virtual void insert(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                        std::shared_ptr<NarMetaVisu::FaceRep> const& face, bool hasMaterial);

    /// One shell with the three corners of each triangle taken from `indices`, which number `points`. A strip
    /// or fan of fewer than three indices inserts nothing and gives an empty kit.
    HPS::ShellKit insertShellTriangles(HPS::SegmentKey& segment, std::vector<HPS::Point> const& points,
                                       std::vector<HPS::Vector> const& normals,
                                       std::vector<int> const& indices);
    /// The texture parameters are not used: a textured material brings its own parameterization.
    HPS::ShellKit insertShellTriangles(HPS::SegmentKey& segment, std::vector<HPS::Point> const& points,
                                       std::vector<HPS::Vector> const& normals,
                                       std::vector<int> const& indices, std::vector<float> const& parameters);
    HPS::ShellKit insertShellTriangleStrip(HPS::SegmentKey& segment, std::vector<HPS::Point> const& points,
                                           std::vector<HPS::Vector> const& normals,
                                           std::vector<int> const& indices);
    HPS::ShellKit insertShellTriangleFan(HPS::SegmentKey& segment, std::vector<HPS::Point> const& points,
                                         std::vector<HPS::Vector> const& normals,
                                         std::vector<int> const& indices);

    // Segments that group geometry by colour, material or id: found by name or made. Channels 0 to 255.
    HPS::SegmentKey getNoColorSegment(HPS::SegmentKey& parent);
    HPS::SegmentKey getBodyColorSegment(HPS::SegmentKey& parent, unsigned short red, unsigned short green,
                                        unsigned short blue, unsigned short alpha);
    HPS::SegmentKey getFaceColorSegment(HPS::SegmentKey& parent, unsigned short red, unsigned short green,
                                        unsigned short blue, unsigned short alpha);
    HPS::SegmentKey getEdgeColorSegment(HPS::SegmentKey& parent, unsigned short red, unsigned short green,
                                        unsigned short blue, unsigned short alpha);
    HPS::SegmentKey getVertexColorSegment(HPS::SegmentKey& parent, unsigned short red, unsigned short green,
                                          unsigned short blue, unsigned short alpha);
    HPS::SegmentKey getFaceMaterialSegment(HPS::SegmentKey& parent, int paletteIndex);
    /// `kind` is "face", "edge" or "vertex"; `rgba` is four channels from 0.0 to 1.0.
    HPS::SegmentKey getColorSegment(HPS::SegmentKey& parent, char const* kind, double const* rgba);
    HPS::SegmentKey getPIDSegment(HPS::SegmentKey& parent, unsigned long long pid);

    // Polygon loops, text, line patterns, marker glyphs
    /// A font name that the scene library can load: the model's own if it is usable, else a fallback file.
    void prepareFontName(std::wstring const& text, std::wstring const& fontName, HPS::UTF8& name) const;
    /// Gives each unclassified loop its type (1 inner, 2 outer) from how the loops lie in each other.
    void classifyPolygonLoops(std::vector<NarMetaVisu::PolygonLoopRep>& loops);
    /// One shell: the first outer loop with all inner ones as its holes.
    void insertPolygonLoops(HPS::SegmentKey& segment, std::vector<NarMetaVisu::PolygonLoopRep>& loops);
    void initializeLineStyles();
    std::string mapMarkerStyleToGlyphName(NarMetaVisu::VisuMarkerStyle style) const;

    // Materials. Once defined they stand until clearMaterials(), which empties the model's container, too.
    void initializeMaterials();
    void clearMaterials();
    static HPS::Image::Format mapFormat(NarMetaVisu::ImagePixelFormat format);
    /// Bytes of a channel; 0 for an unknown type.
    static unsigned long long mapPixelSize(NarMetaVisu::ImagePixelDataType type);
    static HPS::Material::Texture::Parameterization
    mapParameterization(NarMetaVisu::Texture::TextureMappingMode mode);
    std::string getTextureName(std::shared_ptr<NarMetaVisu::Texture> const& texture) const;
    std::string getMaterialName(std::shared_ptr<NarMetaVisu::Material> const& material) const;
    /// Where a texture's image is to be imported from, and as what. As it is, no file: an image named by its
    /// path has no pixels.
    virtual void prepImageImport(std::shared_ptr<NarMetaVisu::Texture> const& texture, std::string& file,
                                 HPS::Image::Format& format);
    bool importImage(std::shared_ptr<NarMetaVisu::Texture> const& texture, HPS::ImageKit& image);
    /// As PNG; the kit stays as it is.
    bool exportImage(std::string const& file, HPS::ImageKit const& image);
    /// Images and textures share the texture's name.
    void defineImage(std::shared_ptr<NarMetaVisu::Texture> const& texture, std::string& name,
                     HPS::ImageDefinition& definition);
    void defineTexture(std::shared_ptr<NarMetaVisu::Texture> const& texture);
    void defineMaterial(std::shared_ptr<NarMetaVisu::Material> const& material, HPS::MaterialKit& kit);
    void defineMaterialNoTexture(std::shared_ptr<NarMetaVisu::Material> const& material,
                                 HPS::MaterialKit& kit);
    void defineMaterialWithTexture(std::shared_ptr<NarMetaVisu::Material> const& material,
                                   HPS::MaterialKit& kit);

    ZELDocument* Document;                                            ///< not owned
    std::map<std::string, HPS::SegmentKey> PartReferenceSegments;     ///< by narrowed PID
    std::map<std::string, HPS::SegmentKey> AssemblyReferenceSegments; ///< by narrowed PID
    std::map<std::string, HPS::SegmentKey> ConcreteSegments;          ///< for the concrete renderer only
    std::map<unsigned long long, HPS::Key> ConcreteMap;               ///< for the concrete renderer only
    HPS::SegmentKey RootKey;
    HPS::SegmentKey ScratchKey; ///< a root of its own, empty between two classifications of polygon loops
    ZELSegmentTagger Tagger;
    std::shared_ptr<ZELObjectMapper> ObjectMapper;
    std::shared_ptr<void> ConcreteShared; ///< for the concrete renderer only
    HPS::PortfolioKey PortfolioKey;       ///< the model's; empty until the first build
    bool MaterialsDefined = false;
    std::vector<std::string> ImageNames;
    std::vector<std::string> TextureNames;
    std::vector<std::string> PaletteNames;
    std::map<std::string, int> MaterialIndex; ///< narrowed material name to index in the palette

    /// Numbers the segments of leaf and drawing nodes over all renderers of the process; Flush() resets it.
    static unsigned long long NodeCounter;

private:
    /// What bad data made a build leave out.
    struct Omissions {
        size_t RecursiveInstances = 0;
        size_t DeepNodes = 0;
        size_t BrokenPolygons = 0;
    };
    class NodeLevel;

    bool buildSceneGraph(NarMetaInfra::ZELProductStructure const* structure, bool visu);
    /// What the walks of assemblies and of the product tree share; `walkChild` goes on below the segment.
    template <class WalkChild> bool fillInstance(HPS::SegmentKey& segment, std::wstring const& pid,
                                                 std::shared_ptr<NarMetaInfra::ZELInstance>& instance,
                                                 WalkChild walkChild);
    template <class Representation>
    bool renderRepresentation(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                              std::shared_ptr<Representation> const& representation,
                              ZELSegmentTagger::TAG_TYPE tag);
    void insertEdges(HPS::SegmentKey& segment, std::shared_ptr<NarMetaVisu::Node> const& node,
                     std::vector<std::shared_ptr<NarMetaVisu::EdgeRep>> const& edges);
    static std::string nextNodeName(NarMetaVisu::Node const& node);
    void reportOmissions();

    std::vector<NarMetaInfra::ZELReference const*> OpenReferences; ///< assemblies the walk stands in
    size_t NodeDepth = 0;
    Omissions Left;
};

} // namespace ZelVizBase
