#pragma once

#include <narmeta/infra/ZELProductStructure.h>
#include <narmeta/visu/MaterialContainer.h>

#include <chrono>
#include <cstdint>

namespace NarMetaInfra
{

class ModelReader;
struct ReadRequest;
struct ReadResult;

/// Called with the share done, from 0 to 1; sets the flag to stop. Null when nobody listens.
using Progress = void (*)(double done, bool& cancel);

/// How a read or a write ended.
enum class IoOutcome {
    Done,
    /// No such file, no permission, a folder, not a regular file, a fault of the disk.
    CannotRead,
    /// Of no known kind, or broken.
    Damaged,
    /// Read well, but it holds nothing that can be shown.
    NothingToShow,
    /// Stopped by the caller, or over a limit of size or time.
    Cancelled,
    CannotWrite
};

/// A stage of a read and the time that it took.
struct StageTiming {
    std::wstring name;
    std::chrono::duration<double> seconds{};
    /// Spent in a modelling kernel, not in this library.
    bool inKernel = false;
};

/// A kind of file, for the file dialogs. Extensions without a dot, in lower case.
struct FileFormat {
    std::wstring name;
    std::vector<std::wstring> extensions;
};

/// What a reader takes from a file, and how fine.
struct ReadOptions {
    bool graphical = false;       ///< visualisation data in place of bodies
    bool persistentNames = false; ///< the file's names of faces and edges
    bool occurrenceData = true;   ///< what single uses of a part say of its look
    bool exactShapes = false;     ///< the exact shapes of parts
    /// Largest distance of triangles from the true shape, as a share of the part's extent.
    double distanceShare = 0.002;
    double angle = 18; ///< largest angle between neighbouring triangles, in degrees

    friend bool operator==(ReadOptions const&, ReadOptions const&) = default;
};

/// Reads and writes models. What a file is is told by its first bytes, not by its name.
class ZelIO
{
public:
    /// Asks for visualisation data in place of bodies; see IsGraphicalMode.
    void RequestGraphicalMode(bool graphical) { options_.graphical = graphical; }
    /// What the last read that went well gave: the reader of a format that knows no bodies refuses false, and
    /// the other way round. Writing, and a read that fails, leave it: the model is still the one that was
    /// read.
    bool IsGraphicalMode() const { return graphical_; }
    void SetReadPersistentNames(bool read) { options_.persistentNames = read; }
    /// Lets the colour and the visibility of an occurrence go over its part's; true at first.
    void SetUseOccurrenceData(bool use) { options_.occurrenceData = use; }
    /// How fine exact shapes are triangulated; see ReadOptions. Both are above 0.
    void SetTessellation(double distanceShare, double degrees)
    {
        options_.distanceShare = distanceShare, options_.angle = degrees;
    }
    /// At least 1.
    void SetNumProcessors(unsigned count) { processors_ = count ? count : 1; }

    /// Reads in a process of its own: a file that breaks the reader down, or takes more seconds or bytes of
    /// memory than it may (0: no limit), is an error and no more, and a cancel holds at once.
    void SetReadIsolated(bool isolated, double seconds = 0, std::uint64_t bytes = 0)
    {
        isIsolated_ = isolated, secondsLimit_ = seconds, bytesLimit_ = bytes;
    }
    /// Keeps read models in the user's cache folder, up to so many bytes in all; 0, the default, keeps none.
    void SetCacheLimit(std::uintmax_t bytes) { cacheLimit_ = bytes; }
    /// Keeps the exact shapes of parts, which STEP and BREP are written from.
    void SetKeepExactShapes(bool keep) { options_.exactShapes = keep; }
    /// A read keeps the materials to itself until PublishMaterials: for a read in a thread beside the one
    /// that uses the process's container.
    void SetPublishMaterialsLater(bool later) { publishesLater_ = later; }
    /// Enters the materials of the last read in the process's MaterialContainer; a second call does nothing.
    void PublishMaterials();

    /// Fills @p structure, which keeps its contents if this gives false.
    bool Read(wchar_t const* path, ZELProductStructure* structure, Progress progress);
    /// The format follows from the extension. The file appears complete or not at all.
    bool Write(wchar_t const* path, ZELProductStructure const* structure, Progress progress);
    /// One reference of the structure by itself. "zel_xml" is for whole models only.
    bool WriteReference(wchar_t const* path, ZELProductStructure const* structure,
                        ZELReference const* reference, Progress progress);
    /// "zel_xml" under any name.
    bool WriteXml(wchar_t const* path, ZELProductStructure const* structure, Progress progress);
    /// Forgets result, messages and timings; the settings stay.
    void Reset();

    IoOutcome GetOutcome() const { return outcome_; }
    /// One line for the user; empty after success.
    std::wstring const& GetErrorMessage() const { return error_; }
    std::vector<std::wstring> const& GetWarningMessages() const { return warnings_; }
    std::vector<StageTiming> const& GetTimings() const { return timings_; }
    /// Replaces @p report by one line "\t<stage>   <seconds> [s].\n" for each stage of the last read.
    void GetTimerReport(std::wstring& report) const;

    static std::vector<FileFormat> ImportFormats();
    static std::vector<FileFormat> ExportFormats();

private:
    void forgetResult();
    /// From what was kept of an earlier read, if that serves.
    ReadResult readOrTake(ModelReader const& reader, ReadRequest const& request,
                          ZELProductStructure& model) const;
    bool writeKernel(wchar_t const* path, ZELProductStructure const* structure, ZELReference const* only,
                     Progress progress);
    bool fail(IoOutcome outcome, std::wstring cause);

    ReadOptions options_;
    bool graphical_ = false;
    bool isIsolated_ = false;
    double secondsLimit_ = 0;
    std::uint64_t bytesLimit_ = 0;
    std::uintmax_t cacheLimit_ = 0;
    bool publishesLater_ = false;
    NarMetaVisu::MaterialContainer materials_; ///< of the last read, not published yet
    unsigned processors_ = 1;
    IoOutcome outcome_ = IoOutcome::Done;
    std::wstring error_;
    std::vector<std::wstring> warnings_;
    std::vector<StageTiming> timings_;
};

} // namespace NarMetaInfra
