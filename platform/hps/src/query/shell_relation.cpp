#include "loop_relation.h"

#include <cstdlib>
#include <hps/ShellKey.h>

namespace HPS
{

namespace
{

bool readOutline(ShellKey const& shell, std::vector<Point>& outline)
{
    ShellKit kit;
    std::vector<Point> points;
    std::vector<int> facelist;
    if (!shell.Show(kit) || !kit.ShowPoints(points) || !kit.ShowFacelist(facelist)) return false;
    for (std::size_t face = 0; face < facelist.size();) {
        std::size_t const end = face + 1 + static_cast<std::size_t>(std::abs(facelist[face]));
        for (std::size_t i = face + 1; i < end; ++i)
            outline.push_back(points[static_cast<std::size_t>(facelist[i])]);
        face = end;
    }
    return true;
}

} // namespace

bool ShellKey::ComputeRelation(ShellKey const& other, ShellRelationOptionsKit const& options,
                               ShellRelationResultsKit& results) const
{
    results = {};
    std::vector<Point> own;
    std::vector<Point> others;
    if (!readOutline(*this, own) || !readOutline(other, others)) return false;
    Shell::RelationTest test{};
    options.ShowTest(test);
    switch (test) {
    case Shell::RelationTest::Extent:
        results = ShellRelationResultsKit({extentRelation(own, others)});
        break;
    case Shell::RelationTest::Outline:
        results = ShellRelationResultsKit({outlineRelation(own, others)});
        break;
    }
    return true;
}

} // namespace HPS
