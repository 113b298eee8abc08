#pragma once

#include <narmeta/io/ZelIO.h>
#include <narmeta/visu/MaterialContainer.h>

#include <filesystem>
#include <span>
#include <string_view>

namespace NarMetaInfra
{

/// What to read and how.
struct ReadRequest {
    std::filesystem::path path;
    ReadOptions options = {};
    unsigned processors = 1;
    Progress progress = nullptr;

    /// Reports the share done; true if the reader shall stop.
    bool Report(double done) const
    {
        bool cancel = false;
        if (progress) progress(done, cancel);
        return cancel;
    }
};

/// How it went. Anything but Done comes with a one-line cause for the user.
struct ReadResult {
    IoOutcome outcome = IoOutcome::Done;
    std::wstring error;
    std::vector<std::wstring> warnings;
    std::vector<StageTiming> timings;
    /// The model holds visualisation data, whatever was asked for.
    bool graphical = false;
    /// What the model's faces look like; the process learns of it only when all went well.
    NarMetaVisu::MaterialContainer materials = {};
    /// The files that were read beside the one asked for; nothing if the reader can't tell.
    std::optional<std::vector<std::filesystem::path>> otherFiles = {};

    static ReadResult Failure(IoOutcome outcome, std::wstring error)
    {
        return {outcome, std::move(error), {}, {}, false, {}, {}};
    }
};

/// How sure a reader is that a file is its own.
enum class Confidence {
    No,
    /// Nothing in the contents speaks against it, and the extension speaks for it.
    ByName,
    /// The contents look like it.
    Likely,
    /// The contents have the format's own mark.
    Certain
};

/// Reads one family of files into a model.
class ModelReader
{
public:
    virtual ~ModelReader() = default;

    virtual FileFormat Format() const = 0;
    /// @p head: the first bytes of the file, up to ReaderRegistry::HeadSize. @p extension: in lower case, no
    /// dot.
    virtual Confidence Recognise(std::string_view head, std::string_view extension) const = 0;
    /// A bad file may take the whole process along, so that files are always read in one of their own.
    virtual bool IsFragile() const { return false; }
    /// Its files are as quick to read as a model that was kept.
    virtual bool IsQuick() const { return false; }
    /// @p model is empty at the start and thrown away unless the outcome is Done. Must not throw.
    virtual ReadResult Read(ReadRequest const& request, ZELProductStructure& model) const = 0;
};

} // namespace NarMetaInfra
