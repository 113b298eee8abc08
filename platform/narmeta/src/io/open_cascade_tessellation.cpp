#include "open_cascade_tessellation.h"

#include "open_cascade_repair.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include <BRepBndLib.hxx>
#include <BRepMesh_IncrementalMesh.hxx>
#include <BRep_Tool.hxx>
#include <Bnd_Box.hxx>
#include <OSD_Parallel.hxx>
#include <OSD_ThreadPool.hxx>
#include <Poly_Connect.hxx>
#include <StdPrs_ToolTriangulatedShape.hxx>
#include <TopExp_Explorer.hxx>
#include <TopTools_MapOfShape.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Face.hxx>

namespace NarMetaInfra
{
namespace
{
void computeNormals(TopoDS_Shape const& shape, bool parallel)
{
    std::vector<TopoDS_Face> faces;
    TopTools_MapOfShape seen;
    for (TopExp_Explorer explorer(shape, TopAbs_FACE); explorer.More(); explorer.Next()) {
        auto face = TopoDS::Face(explorer.Current().Located(TopLoc_Location()));
        if (seen.Add(face)) faces.push_back(std::move(face));
    }
    auto const compute = [&](int index) {
        auto const& face = faces[static_cast<std::size_t>(index)];
        TopLoc_Location location;
        auto const triangles = BRep_Tool::Triangulation(face, location);
        if (triangles.IsNull() || triangles->HasNormals()) return;
        if (BRep_Tool::Surface(face, location).IsNull()) return;
        StdPrs_ToolTriangulatedShape::ComputeNormals(face, triangles);
    };
    OSD_Parallel::For(0, static_cast<int>(faces.size()), compute, !parallel);
}
} // namespace

TessellationTolerance toleranceFor(TopoDS_Shape const& shape, TessellationFineness const& fineness)
{
    Bnd_Box box;
    BRepBndLib::Add(shape, box, false);
    TessellationTolerance tolerance{.angle = fineness.angle};
    if (box.IsVoid() || box.IsOpen()) return tolerance;
    auto const extent = std::sqrt(box.SquareExtent());
    if (std::isfinite(extent) && extent > 0.0) tolerance.distance = std::max(extent * fineness.share, 1e-6);
    return tolerance;
}

void tessellate(TopoDS_Shape const& shape, TessellationTolerance const& tolerance, bool parallel,
                Message_ProgressRange const& range)
{
    IMeshTools_Parameters parameters;
    parameters.Deflection = tolerance.distance;
    parameters.Angle = tolerance.angle;
    parameters.InParallel = parallel;
    BRepMesh_IncrementalMesh mesher;
    mesher.ChangeParameters() = parameters;
    mesher.SetShape(shape);
    mesher.Perform(range);
    if (range.UserBreak()) return;
    fillFailedFaces(shape, tolerance);
    computeNormals(shape, parallel);
}

void setKernelThreads(unsigned count)
{
    OSD_Parallel::SetUseOcctThreads(true);
    auto const threads = static_cast<int>(std::clamp(count, 1u, 256u));
    auto const& pool = OSD_ThreadPool::DefaultPool(threads); // the caller's thread is one of them
    if (pool->NbThreads() != threads && !pool->IsInUse()) pool->Init(threads);
    pool->SetNbDefaultThreadsToLaunch(pool->NbThreads());
}
} // namespace NarMetaInfra
