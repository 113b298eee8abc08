#include "scene_dump.h"

#include "ZELSegmentTagger.h"

#include <sstream>

namespace ZelVizBase
{

namespace
{

constexpr unsigned long long leastObjectId = 1'000'000;

std::string nameOf(HPS::SegmentKey const& segment)
{
    return segment.Name().Empty() ? "-" : segment.Name().Str();
}

std::string tagOf(HPS::SegmentKey& segment)
{
    ZELSegmentTagger::TAG_TYPE type{};
    if (!ZELSegmentTagger::GetType(segment, type)) return {};
    std::ostringstream out;
    out << " [" << type << ' ';
    unsigned long long number = 0;
    std::wstring text;
    if (type == ZELSegmentTagger::TAG_REFERENCE && ZELSegmentTagger::GetPid(segment, text))
        out << HPS::UTF8(text).Str();
    else if (ZELSegmentTagger::GetPid(segment, number) && number < leastObjectId)
        out << number;
    else
        out << '#';
    out << ']';
    return out.str();
}

void writeAttributes(std::ostream& out, HPS::SegmentKey const& segment)
{
    HPS::MatrixKit matrix;
    if (segment.ShowModellingMatrix(matrix)) {
        float const* m = matrix.Data();
        out << " @" << m[12] << ',' << m[13] << ',' << m[14];
        if (m[0] != 1) out << '*' << m[0];
    }
    HPS::StyleKeyArray styles;
    segment.GetStyleControl().Show(styles);
    for (HPS::StyleKey const& style : styles) {
        HPS::UTF8 name;
        HPS::ConditionalExpression condition;
        style.ShowName(name);
        out << " style:" << name.Str();
        if (style.ShowCondition(condition)) out << '?' << condition.Condition().Str();
    }
    bool state = true;
    if (segment.GetVisibilityControl().ShowEverything(state) && !state) out << " hidden";
    if (segment.GetAttributeLockControl().ShowLock(HPS::AttributeLock::Type::Visibility, state) && state)
        out << " locked";
    if (segment.GetBoundingControl().ShowExclusion(state) && state) out << " excluded";
}

void writeGeometry(std::ostream& out, HPS::Key const& key, std::string const& indent)
{
    out << indent;
    if (HPS::ShellKey const shell(key); !shell.Empty()) {
        HPS::ShellKit kit;
        shell.Show(kit);
        std::vector<int> facelist;
        kit.ShowFacelist(facelist);
        out << "shell";
        for (int const entry : facelist) out << ' ' << entry;
    } else if (HPS::LineKey const line(key); !line.Empty()) {
        HPS::LineKit kit;
        line.Show(kit);
        out << "line " << kit.GetPointCount();
    } else if (HPS::PolygonKey const polygon(key); !polygon.Empty()) {
        HPS::PolygonKit kit;
        polygon.Show(kit);
        out << "polygon " << kit.GetPointCount();
    } else if (HPS::TextKey const text(key); !text.Empty()) {
        HPS::TextKit kit;
        text.Show(kit);
        HPS::UTF8 characters;
        kit.ShowText(characters);
        out << "text \"" << characters.Str() << '"';
    } else if (!HPS::MarkerKey(key).Empty()) {
        out << "marker";
    }
    out << '\n';
}

void write(std::ostream& out, HPS::SegmentKey segment, std::string const& indent)
{
    out << indent << nameOf(segment) << tagOf(segment);
    writeAttributes(out, segment);
    out << '\n';
    std::string const deeper = indent + "  ";
    HPS::IncludeKeyArray includes;
    segment.ShowIncludes(includes);
    for (HPS::IncludeKey const& include : includes) {
        HPS::SegmentKey target = include.GetTarget();
        std::wstring pid;
        ZELSegmentTagger::GetPid(target, pid);
        out << deeper << "-> " << (target.Name().Empty() ? HPS::UTF8(pid).Str() : target.Name().Str())
            << '\n';
    }
    HPS::SearchResults geometry;
    segment.Find(HPS::Search::Type::Geometry, HPS::Search::Space::SegmentOnly, geometry);
    for (auto it = geometry.GetIterator(); it.IsValid(); it.Next()) writeGeometry(out, it.GetItem(), deeper);
    HPS::SegmentKeyArray children;
    segment.ShowSubsegments(children);
    for (HPS::SegmentKey const& child : children) write(out, child, deeper);
}

} // namespace

std::string dump(HPS::SegmentKey segment)
{
    std::ostringstream out;
    write(out, segment, "");
    return out.str();
}

} // namespace ZelVizBase
