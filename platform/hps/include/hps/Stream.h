#pragma once
#include <hps/IOException.h>
#include <hps/SegmentKey.h>

namespace HPS
{

namespace Stream
{

class ExportOptionsKit
{
public:
    // Colours of vertices and faces in so many bits each.
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

private:
    std::tuple<bool, unsigned> colorCompression_{false, 16};
};

// Tells how an export stands.
class ExportNotifier
{
public:
    enum class State { Completed };
    State Status() const { return State::Completed; }
    void Wait() const {} // returns when the file is whole
};

class File
{
public:
    // Writes the segment, all below it, all that is included from there, and the portfolios in use. The file
    // appears under its name only when it is whole. Throws IOException if it cannot be written, and leaves a
    // file that stood there before as it was.
    static ExportNotifier Export(UTF8 const& name, SegmentKey const& segment,
                                 ExportOptionsKit const& options);
};

} // namespace Stream

} // namespace HPS
