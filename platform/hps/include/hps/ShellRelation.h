#pragma once
#include <cstdint>
#include <vector>

namespace HPS
{

namespace Shell
{
// How one flat shell lies to another in their plane.
enum class Relation : std::uint32_t {
    Apart = 0,
    Meeting = 1, // they touch, cross or are the same
    Holds = 2,   // the other lies inside this one; it may touch the outline
    Within = 3   // this one lies inside the other
};
// What is compared.
enum class RelationTest : std::uint32_t { Extent = 0, Outline = 1 };
} // namespace Shell

using ShellRelationArray = std::vector<Shell::Relation>;

class ShellRelationOptionsKit
{
public:
    // Outlines, without nearest faces.
    static ShellRelationOptionsKit GetDefault() { return {}; }

    ShellRelationOptionsKit& SetTest(Shell::RelationTest test)
    {
        test_ = test;
        return *this;
    }
    bool ShowTest(Shell::RelationTest& test) const
    {
        test = test_;
        return true;
    }
    // Nearest faces are not calculated: the library has no use for them. Kept for those who say so.
    ShellRelationOptionsKit& SetNearestFaceCalculation(bool state)
    {
        nearestFaces_ = state;
        return *this;
    }
    bool ShowNearestFaceCalculation(bool& state) const
    {
        state = nearestFaces_;
        return true;
    }

private:
    Shell::RelationTest test_ = Shell::RelationTest::Outline;
    bool nearestFaces_ = false;
};

class ShellRelationResultsKit
{
public:
    ShellRelationResultsKit() = default;
    explicit ShellRelationResultsKit(ShellRelationArray relations) : relations_(std::move(relations)) {}

    // One relation for a pair of shells; false, leaving `relations` as it is, if none was found.
    bool ShowRelations(ShellRelationArray& relations) const
    {
        if (relations_.empty()) return false;
        relations = relations_;
        return true;
    }

private:
    ShellRelationArray relations_;
};

} // namespace HPS
