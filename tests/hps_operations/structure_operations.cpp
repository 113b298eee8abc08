#include "operation.h"

using namespace HPS;
using Search::Space;
using testing::ElementsAre;

namespace
{

std::vector<Key> found(SegmentKey const& segment, Search::Type type, Space space = Space::SegmentOnly)
{
    SearchResults results;
    std::vector<Key> keys;
    auto const count = segment.Find(type, space, results);
    EXPECT_EQ(count, results.GetCount());
    for (auto at = results.GetIterator(); at.IsValid(); at.Next()) {
        EXPECT_THAT(at.GetResultTypes(), ElementsAre(type));
        keys.push_back(at.GetItem());
    }
    return keys;
}

} // namespace

OperationRows structureOperations()
{
    return {
        {"SegmentKey::Subsegment", "scene builder",
         [](Bench& b) {
             EXPECT_EQ(b.top.Subsegment("none", false).Type(), Type::None);
             auto const made = b.top.Subsegment("none", true);
             EXPECT_EQ(b.top.Subsegment("none", false), made);
             EXPECT_NE(b.top.Subsegment("", true), b.top.Subsegment("", true)) << "unnamed ones are all new";
         }},
        {"SegmentKey::SetName", "scene inspector",
         [](Bench& b) {
             b.instance.SetName("renamed");
             EXPECT_EQ(b.instance.Name(), UTF8("renamed"));
             EXPECT_EQ(b.top.Subsegment("renamed", false), b.instance);
             EXPECT_TRUE(b.top.Subsegment("instance", false).Empty());
         }},
        {"SegmentKey::ShowSubsegments", "listing of tags",
         [](Bench& b) {
             SegmentKeyArray children;
             ASSERT_TRUE(b.top.ShowSubsegments(children));
             EXPECT_THAT(children, ElementsAre(b.instance, b.other));
             EXPECT_FALSE(b.body.ShowSubsegments(children));
         }},
        {"SegmentKey::IncludeSegment", "scene builder",
         [](Bench& b) {
             EXPECT_EQ(b.include.GetTarget(), b.part);
             EXPECT_EQ(b.include.Owner(), b.instance);
             EXPECT_TRUE(b.body.IncludeSegment(b.part).Empty()) << "a circle";
         }},
        {"SegmentKey::ShowIncludes", "scene builder",
         [](Bench& b) {
             IncludeKeyArray includes;
             ASSERT_TRUE(b.instance.ShowIncludes(includes));
             EXPECT_THAT(includes, ElementsAre(b.include));
             ASSERT_TRUE(b.part.ShowIncluders(includes));
             EXPECT_THAT(includes, ElementsAre(b.include, b.otherInclude));
             b.part.Delete();
             EXPECT_FALSE(b.instance.ShowIncludes(includes)) << "includes go with what they include";
             EXPECT_TRUE(b.include.Empty());
         }},
        {"SegmentKey::Find includes", "conversion of tree ids",
         [](Bench& b) {
             EXPECT_THAT(found(b.instance, Search::Type::Includes), ElementsAre(b.include));
             EXPECT_EQ(IncludeKey(found(b.instance, Search::Type::Includes)[0]).GetTarget(), b.part);
         }},
        {"SegmentKey::Find by type", "scene inspector",
         [](Bench& b) {
             auto const line = b.part.InsertLine({0, 0, 0}, {1, 1, 1});
             auto const marker = b.body.InsertMarker({0, 0, 0});
             EXPECT_THAT(found(b.part, Search::Type::Shell), ElementsAre());
             EXPECT_THAT(found(b.part, Search::Type::Shell, Space::Subsegments), ElementsAre(b.shell));
             EXPECT_THAT(found(b.part, Search::Type::Line, Space::Subsegments), ElementsAre(line));
             EXPECT_THAT(found(b.part, Search::Type::Marker, Space::Subsegments), ElementsAre(marker));
             EXPECT_THAT(found(b.part, Search::Type::Subsegments), ElementsAre(b.body));
         }},
        {"SegmentKey::Find rays", "scene inspector",
         [](Bench& b) {
             auto const line = b.body.InsertInfiniteLine({0, 0, 0}, {1, 0, 0});
             auto const ray = b.body.InsertInfiniteRay({0, 0, 0}, {1, 0, 0});
             auto const second = b.body.InsertInfiniteLine({0, 0, 0}, {0, 1, 0});
             EXPECT_THAT(found(b.body, Search::Type::InfiniteRay), ElementsAre(ray));
             EXPECT_THAT(found(b.body, Search::Type::InfiniteLine), ElementsAre(line, second));
             b.body.Flush(Search::Type::InfiniteRay);
             EXPECT_TRUE(ray.Empty());
             EXPECT_FALSE(line.Empty());
         }},
        {"SearchResultsIterator::GetResultTypes", "scene inspector",
         [](Bench& b) {
             SearchResults results;
             b.part.Find({Search::Type::Shell, Search::Type::Geometry, Search::Type::Line},
                         Space::Subsegments, results);
             ASSERT_EQ(results.GetCount(), 1u);
             EXPECT_THAT(results.GetIterator().GetResultTypes(),
                         ElementsAre(Search::Type::Shell, Search::Type::Geometry));
         }},
        {"SegmentKey::Flush", "reset of a document",
         [](Bench& b) {
             b.top.SetPriority(1).GetStyleControl().PushNamed("style");
             b.top.Flush(Search::Type::Everything, Space::SegmentOnly);
             EXPECT_TRUE(b.instance.Empty());
             int priority = 0;
             EXPECT_FALSE(b.top.ShowPriority(priority));
             EXPECT_EQ(b.top.GetStyleControl().GetCount(), 0u);
             EXPECT_FALSE(b.top.Empty());
             EXPECT_FALSE(b.part.Empty()) << "what was included stays";
         }},
        {"Key::Delete", "scene inspector",
         [](Bench& b) {
             b.shell.Delete();
             EXPECT_EQ(b.shell.Type(), Type::None);
             EXPECT_FALSE(b.shell.HasOwner());
             EXPECT_EQ(b.shell.GetPointCount(), 0u);
             ShellKit kit;
             EXPECT_FALSE(b.shell.Show(kit));
             b.shell.Delete();
             EXPECT_FALSE(b.body.Empty());
         }},
        {"Key::Owner", "conversion of tree ids",
         [](Bench& b) {
             EXPECT_EQ(b.shell.Owner(), b.body);
             EXPECT_EQ(b.shell.Up().Up(), b.part);
             EXPECT_TRUE(b.part.HasOwner());
             EXPECT_FALSE(b.part.Owner().HasOwner()) << "the library's own segment is a root";
             EXPECT_TRUE(b.part.Owner().Owner().Empty());
         }},
        {"Key::SetUserData", "tagging of segments",
         [](Bench& b) {
             b.body.SetUserData(7, {1, 2}).SetUserData(-1, {3});
             IntPtrTArray indices;
             ByteArrayArray data;
             ASSERT_TRUE(b.body.ShowUserData(indices, data));
             EXPECT_THAT(indices, ElementsAre(-1, 7));
             EXPECT_THAT(data, ElementsAre(ByteArray{3}, ByteArray{1, 2}));
             b.body.UnsetUserData(-1);
             EXPECT_EQ(b.body.ShowUserDataCount(), 1u);
             b.shell.SetUserData(1, {9});
             b.body.UnsetAllUserData();
             EXPECT_EQ(b.body.ShowUserDataCount(), 0u);
             EXPECT_EQ(b.shell.ShowUserDataCount(), 1u);
         }},
        {"Object::HasType", "pick",
         [](Bench& b) {
             EXPECT_TRUE(b.shell.HasType(Type::GeometryKey));
             EXPECT_FALSE(b.shell.HasType(Type::SegmentKey));
             EXPECT_TRUE(b.include.HasType(Type::IncludeKey));
             EXPECT_FALSE(b.include.HasType(Type::SegmentKey));
             EXPECT_TRUE(b.window().HasType(Type::SegmentKey));
             EXPECT_TRUE(b.window().HasType(Type::WindowKey));
             EXPECT_EQ(b.window().Type(), Type::ApplicationWindowKey);
         }},
        {"Database::CreateRootSegment", "sources of styles",
         [](Bench&) {
             auto source = Database::CreateRootSegment();
             EXPECT_FALSE(source.HasOwner());
             EXPECT_THAT(Database::GetRootSegments(), testing::Contains(source));
             source.Delete();
         }},
        {"Database::GetEventDispatcher", "messages to the user",
         [](Bench& b) {
             struct Listener : EventHandler {
                 std::string text;
                 HandleResult Handle(Event const* event) override
                 {
                     text = static_cast<ErrorEvent const*>(event)->message.Str();
                     return HandleResult::Handled;
                 }
             } listener;
             Database::GetEventDispatcher().Subscribe(listener, ErrorEvent().GetClassID());
             b.body.IncludeSegment(b.part);
             EXPECT_THAT(listener.text, testing::HasSubstr("itself"));
         }},
    };
}
