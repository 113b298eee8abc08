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
    /// Entity numbers of all faces, edges and points that the annotations are linked to, under which their
    /// links name them: "#" and the number.
    std::set<int> linked;
};

/// Reads all annotations, saved views and captures of a file. @p ownerOf gives nothing for a product that is
/// not in the model; its annotations go to @p root.
std::vector<StepAnnotationSet>
readStepAnnotations(StepEntities const& entities, int root,
                    std::function<std::optional<StepOwner>(int product)> const& ownerOf);

/// Keywords that a file with annotations has; a look for them spares the others all the work.
bool hasStepAnnotations(StepEntities const& entities);
} // namespace NarMetaInfra
