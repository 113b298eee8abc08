#pragma once

// Only for sources of this folder that see Open CASCADE.

#include "PartMesher.h"
#include "open_cascade_document.h"

#include <STEPCAFControl_Reader.hxx>

namespace NarMetaInfra
{
/// The kernel's reader, which can be made to translate parts one by one ahead of the whole.
class StepReader : public STEPCAFControl_Reader
{
public:
    StepReader();

    /// Has the files of external parts that the kernel would not survive count as unreadable. @p folder: of
    /// the file.
    void refuseFiles(KernelDocument& document, std::filesystem::path const& folder);

    /// Translates the parts of assemblies, and reads the files of external ones, each handed to @p mesher as
    /// soon as it is complete: while the next is translated, it is meshed. Transfer() then finds them done.
    /// Does nothing where no thread is free for that. @p folder: of the file.
    void translateAhead(KernelDocument& document, PartMesher& mesher, std::filesystem::path const& folder,
                        Message_ProgressRange const& range);

    /// Why the assemblies of the file must not be expanded, in words for the user; empty if they may be.
    std::string refusal();
    /// The files that parts were read from, once all is translated.
    std::vector<std::filesystem::path> partFiles(std::filesystem::path const& folder);

private:
    void readExternal(std::string const& name, KernelDocument& document, PartMesher& mesher,
                      std::filesystem::path const& folder, Message_ProgressRange const& range);
};
} // namespace NarMetaInfra
