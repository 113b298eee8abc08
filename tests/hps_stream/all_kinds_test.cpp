// Whatever the library's lists name must travel.
#include "../hps/geometry_samples.h"
#include "definition_kinds.h"
#include "filling.h"
#include "geometry_records.h"
#include "stored_kit.h"
#include "stream_files.h"
#include "structure.h"

using namespace HPS;

namespace
{

using AllKinds = StreamFiles;

TEST_F(AllKinds, EveryAspectOfEveryKit)
{
    using namespace scene;
    Filling fill;
    fill.segment = root.Subsegment("compared").Index();
    auto& child = *store().resolve<SegmentRecord>(root.Subsegment("child"));
    for (unsigned number = 0; number < static_cast<unsigned>(KitKind::Count); ++number) {
        auto const kind = static_cast<KitKind>(number);
        withKit(kind, [&]<class Data>(std::type_identity<Data>) {
            child.setKit(kind, std::make_shared<KitBlockOf<Data> const>(fill.filled<Data>()));
        });
    }
    EXPECT_EQ(changed(root), "");
    auto const& read = *store().resolve<SegmentRecord>(target.Subsegment("child", false));
    EXPECT_EQ(read.kits.size(), static_cast<std::size_t>(KitKind::Count));
}

TEST_F(AllKinds, EveryKindOfGeometry)
{
    Sample const sample{root};
#define HPS_INSERT(Name) root.Insert##Name(Name##Kit(sample).SetPriority(7).SetUserData(3, {1, 2, 3}));
    HPS_GEOMETRY_KINDS(HPS_INSERT)
#undef HPS_INSERT
    EXPECT_EQ(changed(root), "");
    SearchResults found;
    EXPECT_EQ(target.Find(Search::Type::Geometry, Search::Space::SegmentOnly, found),
              root.Find(Search::Type::Geometry, Search::Space::SegmentOnly, found));
}

TEST_F(AllKinds, EveryKindOfDefinition)
{
    using namespace scene;
    auto portfolio = Database::CreatePortfolio();
    root.Subsegment("child").GetPortfolioControl().Push(portfolio);
    Filling fill;
    fill.segment = root.Subsegment("source").Index();
    fill.image = ImageDefinition(portfolio, "image");
    auto& record = *store().resolve<PortfolioRecord>(portfolio);
    forEachDefinitionKind([&](auto const& kind) {
        for (auto const* const name : {"image", "another"}) fill((record.*kind.definitions)[name]);
    });
    EXPECT_EQ(changed(root), "");
    portfolio.Delete();
}

TEST_F(AllKinds, EverythingThatShellsAndMeshesMayHold)
{
    auto const decorate = [](auto kit) {
        auto const red = RGBAColor(1, 0.5f, 0.25f, 0.3f);
        kit.SetVertexNormalsByRange(1, {Vector(0, 0, 1), Vector(0.5f, 2, 1)});
        kit.SetFaceNormalsByRange(0, {Vector(0, 1, 0)}).SetVertexParametersByRange(1, {1, 2, 3, 4, 5, 6}, 3);
        kit.SetVertexRGBAColorsByRange(1, {red}).SetFaceRGBAColorsByRange(0, {red});
        using Component = typename decltype(kit)::Component;
        kit.SetVertexRGBAColorsByRange(0, {red}, Component::Edges).SetVertexIndexColorsByRange(2, {2.5f});
        kit.SetVertexIndexColorsByRange(0, {1}, Component::Vertices);
        kit.SetVertexVisibilitiesByRange(1, {true, false}).SetFaceVisibilitiesByRange(0, {false});
        return kit.SetMaterialMapping(MaterialMappingKit().SetFaceColor(red));
    };
    std::vector<Point> const points{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {1, 1, 0.3f}, {5, 5, 5}, {6, 5, 5}};
    root.InsertShell(
        decorate(ShellKit().SetPoints(points).SetFacelist({4, 0, 1, 2, 3, -3, 0, 1, 2, 3, 3, 4, 5})));
    root.InsertMesh(decorate(MeshKit().SetPoints(2, 3, points)));
    EXPECT_EQ(changed(root), "");
}

} // namespace
