#pragma once
#include <hps/IOException.h>
#include <hps/PortfolioKey.h>
#include <hps/SegmentKey.h>
#include <memory>

namespace HPS
{

namespace scene
{
class StreamTask;
}

// An import or export under way. It has no thread of its own, for the database has but one: Status does a few
// milliseconds of it and then tells how it stands, Wait does what is left. A notifier that is let go before
// the end does what is left as well, and tells of a failure by an ErrorEvent. Copies share the work.
class IONotifier
{
public:
    enum class State { InProgress, Completed, Failed, Canceled };

    IONotifier() = default; // of work that is done
    explicit IONotifier(std::shared_ptr<scene::StreamTask> task) : task_(std::move(task)) {}

    // Throws IOException, once, if the work fails.
    State Status() const;
    State Status(float& fraction) const; // of the work that is done, from 0 to 1
    void Wait() const;                   // returns when all is there; throws as Status
    // Gives the work up: no file is written, nothing is imported. Too late once it is completed.
    void Cancel() const;

private:
    std::shared_ptr<scene::StreamTask> task_;
};

namespace Stream
{

using ExportNotifier = IONotifier;
using ImportNotifier = IONotifier;

class ExportOptionsKit
{
public:
    // Colours of vertices and faces in so many bits a channel, up to 16. Colours that are bytes stay exact
    // from 8 bits on.
    ExportOptionsKit& SetColorCompression(bool state, unsigned bitsPerColor = 16)
    {
        colorCompression_ = {state, bitsPerColor};
        return *this;
    }
    bool ShowColorCompression(bool& state, unsigned& bitsPerColor) const
    {
        std::tie(state, bitsPerColor) = colorCompression_;
        return true;
    }

    // Normals of unit length in 32 bits, to a twentieth of a degree. Without it they stay exact, as all other
    // numbers always do.
    ExportOptionsKit& SetNormalCompression(bool state)
    {
        normalCompression_ = state;
        return *this;
    }
    bool ShowNormalCompression(bool& state) const
    {
        state = normalCompression_;
        return true;
    }

private:
    std::tuple<bool, unsigned> colorCompression_{false, 16};
    bool normalCompression_ = false;
};

class ImportOptionsKit
{
public:
    // Takes what the exported segment had. Needed.
    ImportOptionsKit& SetSegment(SegmentKey const& segment)
    {
        segment_ = segment;
        return *this;
    }
    // Takes the segments that were included from outside the exported one. Without it they get a new root.
    ImportOptionsKit& SetAlternateRoot(SegmentKey const& root)
    {
        alternateRoot_ = root;
        return *this;
    }
    // Takes the definitions of the first portfolio. Without it they get a new one.
    ImportOptionsKit& SetPortfolio(PortfolioKey const& portfolio)
    {
        portfolio_ = portfolio;
        return *this;
    }
    SegmentKey const& Segment() const { return segment_; }
    SegmentKey const& AlternateRoot() const { return alternateRoot_; }
    PortfolioKey const& Portfolio() const { return portfolio_; }

private:
    SegmentKey segment_;
    SegmentKey alternateRoot_;
    PortfolioKey portfolio_;
};

class File
{
public:
    // Writes the segment, all below it, and all that is reached from there: what is included, styles and
    // their sources, referenced geometry with its segment, portfolios. The file appears under its name only
    // when it is whole; a failure leaves one that stood there before as it was. Throws IOException if the
    // file cannot be begun. A scene that changes before the end is written as it stands then.
    static ExportNotifier Export(UTF8 const& name, SegmentKey const& segment,
                                 ExportOptionsKit const& options);
    // Reads what Export wrote and sets it on the segment when all of it is there: until then, and if it
    // fails, the scene is as before. A child whose name is taken gets a number behind it. Throws IOException
    // if there is no such file.
    static ImportNotifier Import(UTF8 const& name, ImportOptionsKit const& options);
};

} // namespace Stream

} // namespace HPS
