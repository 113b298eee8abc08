#pragma once

#include "StepPictures.h"
#include "StepProperties.h"
#include "StepSemantics.h"
#include "StepViews.h"

#include <narmeta/pmi/PMIContainer.h>
#include <narmeta/visu/Node.h>

#include <functional>
#include <set>

namespace NarMetaInfra
{
/// The model's object that stands for a product definition of the file.
struct StepOwner {
    NarMeta::Id id = 0;
    std::wstring pid;
};

/// The annotations of one product: what they say and what they look like, tied by their ids.
struct StepAnnotationSet {
    int product = 0; ///< product definition
    std::shared_ptr<NarMetaPmi::PMIAnnotationSet> set;
    /// Leaves with one picture each below a node of type Annotations; empty if none has a picture.
    std::shared_ptr<NarMetaVisu::Node> pictures;
    /// Faces, edges and points that the annotations are linked to, by the product that has them: entity
    /// numbers, under which the links name them, "#" and the number.
    std::map<int, std::set<int>> linked;
};

/// What of the model stands for entities of a file.
struct StepTies {
    /// Nothing for a product definition that is not in the model.
    std::function<std::optional<StepOwner>(int product)> ownerOf;
    /// PID of the instance that an occurrence has become; empty if there is none.
    std::function<std::wstring(int use)> pidOf;
};

/// Reads all annotations, saved views and captures of a file. Those of products that are not in the model go
/// to @p root.
std::vector<StepAnnotationSet> readStepAnnotations(StepEntities const& entities, int root,
                                                   StepTies const& ties);

/// Keywords that a file with annotations has; a look for them spares the others all the work.
bool hasStepAnnotations(StepEntities const& entities);
} // namespace NarMetaInfra
