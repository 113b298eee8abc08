#pragma once
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <hps/hps.h>

namespace HPS
{

inline bool operator==(LockEntry const& a, std::pair<AttributeLock::Type, bool> b)
{
    return a.type == b.first && a.state == b.second;
}
inline void PrintTo(Point const& p, std::ostream* out)
{
    *out << '(' << p.x << ", " << p.y << ", " << p.z << ')';
}
inline void PrintTo(SimpleCuboid const& b, std::ostream* out)
{
    PrintTo(b.min, out);
    PrintTo(b.max, out);
}
inline void PrintTo(UTF8 const& text, std::ostream* out)
{
    *out << '"' << text.Str() << '"';
}
inline void PrintTo(Key const& key, std::ostream* out)
{
    *out << "key " << key.Index().slot;
}

} // namespace HPS

// A root segment that goes with the test.
class Scene : public testing::Test
{
protected:
    HPS::SegmentKey root = HPS::Database::CreateRootSegment();
    ~Scene() override { root.Delete(); }

    HPS::ShellKey insertTriangle(HPS::SegmentKey segment, float size = 1)
    {
        return segment.InsertShell({{0, 0, 0}, {size, 0, 0}, {0, size, 0}}, {3, 0, 1, 2});
    }
};
