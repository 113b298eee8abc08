// The product structure as segments: references in the library, instances that include them in the model.

#include "ZELRenderer.h"

#include "document_model.h"
#include "model_color.h"
#include "text.h"

#include <algorithm>
#include <cassert>

namespace ZelVizBase
{

using NarMetaInfra::ZELInstance;
using NarMetaInfra::ZELProductStructure;
using NarMetaInfra::ZELReference;

namespace
{

/// Nested assemblies are walked by recursion. No real product comes near; a frame of the walk is below 1 kB.
constexpr size_t greatestAssemblyDepth = 1000;

/// Marks an assembly as the one the walk stands in, for as long as this lives.
class OpenReference
{
public:
    OpenReference(std::vector<ZELReference const*>& path, ZELReference const& reference) : Path(path)
    {
        Path.push_back(&reference);
    }
    ~OpenReference() { Path.pop_back(); }
    OpenReference(OpenReference const&) = delete;
    OpenReference& operator=(OpenReference const&) = delete;

private:
    std::vector<ZELReference const*>& Path;
};

std::wstring referencePid(ZELReference const& reference)
{
    std::wstring pid;
    [[maybe_unused]] bool const gotPID = reference.GetPID(pid);
    assert(true == gotPID);
    return pid;
}

} // namespace

bool ZELRenderer::initPartReferences(ZELProductStructure const* structure)
{
    if (!Document || !structure) return false;
    size_t const count = structure->GetUniqueReferencesCount();
    if (count == 0) return false;
    HPS::SegmentKey partReferences =
        documentModel(*Document).GetLibraryKey().Subsegment("partreferences", true);
    bool result = false;
    for (size_t i = 0; i < count; ++i) {
        std::shared_ptr<ZELReference> reference;
        if (!structure->GetUniqueReference(i, reference)) continue;
        std::wstring const pid = referencePid(*reference);
        std::string const name = narrow(pid);
        if (PartReferenceSegments.contains(name)) continue;

        HPS::SegmentKey segment;
        result = initPartReference(partReferences, reference, segment);
        if (!result) return false;
        Tagger.Tag(segment, pid, ZELSegmentTagger::TAG_REFERENCE);
        ObjectMapper->Add(pid, segment);
        PartReferenceSegments[name] = segment;
    }
    return result;
}

bool ZELRenderer::initAssemblyReferences(ZELProductStructure const* structure)
{
    if (!Document || !structure) return false;
    std::vector<std::shared_ptr<ZELReference>> references = structure->GetSubAssemblyReferences();
    if (references.empty()) return true;
    HPS::SegmentKey assemblyReferences =
        documentModel(*Document).GetLibraryKey().Subsegment("subassemblyreferences", true);
    bool result = false;
    for (std::shared_ptr<ZELReference>& reference : references) {
        if (reference->IsEmpty()) continue;
        if (reference->IsPart()) return result;
        std::wstring const pid = referencePid(*reference);
        std::string const name = narrow(pid);
        if (AssemblyReferenceSegments.contains(name)) continue;

        HPS::SegmentKey assemblySegment = assemblyReferences.Subsegment("", true);
        ObjectMapper->Add(pid, assemblySegment);
        Tagger.Tag(assemblySegment, pid, ZELSegmentTagger::TAG_REFERENCE);
        HPS::SegmentKey instanceParent;
        result = initAssemblyReference(assemblySegment, reference, instanceParent);
        if (!result) return false;

        OpenReference const open(OpenReferences, *reference);
        size_t const instanceCount = reference->GetInstancesCount();
        for (size_t i = 0; i < instanceCount; ++i) {
            std::shared_ptr<ZELInstance> instance;
            if (!reference->GetInstance(i, instance)) continue;
            result = initAssemblyReferences(instanceParent, instance);
            if (!result) return false;
        }
        // Not before: while its instances are built the assembly must not be found as a finished one.
        AssemblyReferenceSegments[name] = assemblySegment;
    }
    return result;
}

bool ZELRenderer::initAssemblyReferences(HPS::SegmentKey& parent, std::shared_ptr<ZELInstance>& instance)
{
    std::wstring pid;
    [[maybe_unused]] bool const gotPID = instance->GetPID(pid);
    assert(true == gotPID);
    HPS::SegmentKey segment = parent.Subsegment(narrow(pid).c_str(), true);
    auto const walkChild = [this](HPS::SegmentKey& childParent, std::shared_ptr<ZELInstance>& child) {
        return initAssemblyReferences(childParent, child);
    };
    if (!fillInstance(segment, pid, instance, walkChild)) return false;
    handleHiddenFlag(instance, segment);
    handleSuppressedFlag(instance, segment);
    return true;
}

bool ZELRenderer::buildProductSceneGraph(ZELProductStructure const* structure)
{
    if (!Document || !structure) return false;
    bool result = false;
    size_t const count = structure->GetRootInstancesCount();
    for (size_t i = 0; i < count; ++i) {
        std::shared_ptr<ZELInstance> instance;
        if (!structure->GetRootInstance(i, instance)) continue;
        HPS::SegmentKey segment;
        result = buildProductSceneGraph(RootKey, instance, segment);
        if (!result) return false;
    }
    return result;
}

bool ZELRenderer::buildProductSceneGraph(HPS::SegmentKey& parent, std::shared_ptr<ZELInstance>& instance,
                                         HPS::SegmentKey& segment)
{
    std::wstring pid;
    instance->GetPID(pid);
    segment = parent.Subsegment(narrow(pid).c_str(), true);
    auto const walkChild = [this](HPS::SegmentKey& childParent, std::shared_ptr<ZELInstance>& child) {
        HPS::SegmentKey childSegment;
        return buildProductSceneGraph(childParent, child, childSegment);
    };
    return fillInstance(segment, pid, instance, walkChild);
}

template <class WalkChild> bool ZELRenderer::fillInstance(HPS::SegmentKey& segment, std::wstring const& pid,
                                                          std::shared_ptr<ZELInstance>& instance,
                                                          WalkChild walkChild)
{
    Tagger.Tag(segment, instance->GetHashedID(), ZELSegmentTagger::TAG_INSTANCE);
    setInstanceProperties(segment, instance);

    std::shared_ptr<ZELReference> const reference = instance->GetReference();
    if (!reference || reference->IsEmpty()) return true;
    std::string const referenceName = narrow(referencePid(*reference));
    ObjectMapper->Add(pid, segment);

    auto const& shared = reference->IsPart() ? PartReferenceSegments : AssemblyReferenceSegments;
    auto const found = shared.find(referenceName);
    if (found != shared.end()) {
        segment.IncludeSegment(found->second);
        return true;
    }
    if (reference->IsPart()) return true;

    bool const inItself =
        std::find(OpenReferences.begin(), OpenReferences.end(), reference.get()) != OpenReferences.end();
    if (inItself || OpenReferences.size() >= greatestAssemblyDepth) {
        ++Left.RecursiveInstances;
        return true;
    }
    OpenReference const open(OpenReferences, *reference);
    bool result = true;
    size_t const count = reference->GetInstancesCount();
    for (size_t i = 0; result && i < count; ++i) {
        std::shared_ptr<ZELInstance> child;
        if (reference->GetInstance(i, child)) result = walkChild(segment, child);
    }
    return result;
}

void ZELRenderer::setInstanceProperties(HPS::SegmentKey& segment, std::shared_ptr<ZELInstance>& instance)
{
    float matrix[16] = {};
    instance->GetTransform(matrix);
    segment.GetModellingMatrixControl().SetElements(16, matrix);

    ModelColor color;
    color.ReadAlpha(*instance);
    color.ReadRgb(*instance);
    if (color.HasRgb) {
        // The locks let the instance's colour win over the colours inside the shared reference.
        segment.GetMaterialMappingControl().SetFaceColor(color.Rgba(),
                                                         HPS::Material::Color::Channel::DiffuseColor);
        segment.GetAttributeLockControl().SetLock(HPS::AttributeLock::Type::MaterialFaceDiffuseColor, true);
        if (color.HasAlpha)
            segment.GetAttributeLockControl().SetLock(HPS::AttributeLock::Type::MaterialFaceDiffuseAlpha,
                                                      true);
    }
    handleHiddenFlag(instance, segment);
    handleSuppressedFlag(instance, segment);
}

void ZELRenderer::handleHiddenFlag(std::shared_ptr<ZELInstance>& instance, HPS::SegmentKey& segment)
{
    bool hidden = false;
    if (instance->GetHidden(hidden) && hidden) Hide(segment);
}

void ZELRenderer::handleSuppressedFlag(std::shared_ptr<ZELInstance>& instance, HPS::SegmentKey& segment)
{
    bool suppressed = false;
    if (!instance->GetSuppressed(suppressed) || !suppressed) return;
    segment.GetBoundingControl().SetExclusion(true);
    Hide(segment);
}

void ZELRenderer::enableConditionalHideBodyNode(HPS::SegmentKey& segment, unsigned long long bodyId)
{
    std::string const condition = "hide_#" + std::to_string(bodyId);
    segment.GetStyleControl().PushNamed("hidden_brep", HPS::ConditionalExpression(condition.c_str()));
}

} // namespace ZelVizBase
