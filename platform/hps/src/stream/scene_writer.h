// The form of an exported scene: lines of text, each a word and its values, parted by blanks. Numbers are
// written so that they read back bit by bit; texts stand in quotes, with backslashes before quotes,
// backslashes and as \n.
//
//   scene 1                                  the form and its version
//   segment <n> <owner> "<name>"             n counts from 1; owner 0 is none; what follows belongs to it:
//     matrix <16 numbers>
//     kit <Name>                             then its aspects:
//       <Aspect> <values>                    lists by their count first; what may be absent after 0 or 1
//     condition "<name>"
//     style "<name>" "<condition>"           a named style; the condition is empty if it always holds
//     style-segment <n> "<condition>"        a style with a source of its own; 0 if that is gone
//     uses-portfolio <n>                     in the order they were pushed
//     palette "<name>"
//     data <index> <hex bytes>               also behind a geometry, as is
//     priority <number>                      behind a geometry
//     include <n>                            the segment it shows
//     shell <points> <facelist>              the counts; then
//       points <coordinates>
//       facelist <integers>
//       normals | face-colors | vertex-face-colors | vertex-edge-colors | vertex-colors <count> <flags>
//       <values>
//                                            flags: 0 or 1 for each, or * for all
//     line <points> <coordinates>, polygon likewise
//     marker <point>
//     text <point> "<text>"                  then its attributes as a kit, and
//       color | text-matrix | leader-lines | region <values>
//     distant-light <direction> <camera relative>      then, if it has one, color
//   portfolio <n>                            what follows belongs to it:
//     named-style "<name>" <segment>         0 if its source is gone
//     line-pattern "<name>" <parallels>      each: offset, count, then kind and length of its stretches
//       join <value>
//     material-palette "<name>" <count>      then `material` as often, each with its aspects as a kit has
//     them
//   end
//
// The segments are the exported one, all below it, all that is included from there, and the sources of the
// styles in use. Portfolios are those pushed on any of them.
#pragma once
#include "geometry_records.h"
#include "portfolio_record.h"
#include <hps/Stream.h>
#include <iosfwd>
#include <map>

namespace HPS::scene
{

class SceneWriter
{
public:
    SceneWriter(std::ostream& out, Stream::ExportOptionsKit const& options);
    void write(SegmentRecord const& top);

private:
    void collect(SegmentRecord const& top);
    void writeSegment(SegmentRecord const& segment);
    void writeRare(SegmentExtras const& extras);
    void writeUserData(UserData const* data);
    void writeGeometry(GeometryRecord const& geometry);
    void writeShell(ShellData const& data);
    void writeText(TextData const& data);
    void writePortfolio(PortfolioRecord const& portfolio);
    template <class T> void writeElements(char const* word, ElementValues<T> const& elements);
    template <class Data> void writeAspects(Data const& data);
    template <class... T> void line(char const* word, T const&... values);
    template <class T> void put(T const& value); // with a blank before it
    RGBAColor stored(RGBAColor const& color) const;

    std::ostream& out_;
    float colorSteps_ = 0; // 0: colours as they are
    std::vector<SegmentRecord const*> segments_;
    std::vector<PortfolioRecord const*> portfolios_;
    std::map<SlotIndex, std::size_t> numbers_; // of segments and portfolios, by slot
};

} // namespace HPS::scene
