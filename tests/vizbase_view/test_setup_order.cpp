// In which order a new view furnishes its scene, by a record of every write to the database.

#include "ViewTest.h"

#include "store.h"

namespace ZelVizBase
{
namespace
{

using HPS::scene::SlotIndex;

class SetupOrder : public testing::Test
{
protected:
    SetupOrder()
    {
        writes().clear();
        HPS::scene::store().changes.recorder = [](SlotIndex slot, HPS::scene::Change) {
            writes().push_back(slot);
        };
        View.emplace();
        HPS::scene::store().changes.recorder = nullptr;
        nameAll();
    }

    /// What was written to, one name for each run of writes to the same; others than those named are left
    /// out.
    std::vector<std::string> written() const
    {
        std::vector<std::string> order;
        for (SlotIndex const slot : writes()) {
            auto const found = Names.find(slot);
            if (found != Names.end() && (order.empty() || order.back() != found->second))
                order.push_back(found->second);
        }
        return order;
    }

    std::optional<ZELView3D> View;
    std::map<SlotIndex, std::string> Names;

private:
    static std::vector<SlotIndex>& writes()
    {
        static std::vector<SlotIndex> slots;
        return slots;
    }

    void nameAll()
    {
        auto const name = [&](HPS::Key const& key, std::string const& what) {
            Names[key.Index().slot] = what;
        };
        HPS::View const view = View->View();
        name(View->Canvas().GetWindowKey(), "window");
        name(view.GetSegmentKey(), "view");
        name(view.GetAxisTriadControl().GetSegmentKey(), "triad");
        name(view.GetNavigationCubeControl().GetSegmentKey(), "cube");
        HPS::PortfolioKey portfolio;
        view.GetSegmentKey().GetPortfolioControl().ShowTop(portfolio);
        name(portfolio, "portfolio");
        std::vector<HPS::NamedStyleDefinition> styles;
        portfolio.ShowAllNamedStyleDefinitions(styles);
        for (auto const& style : styles) name(style.GetSource(), style.Name().Str());
    }
};

TEST_F(SetupOrder, LightBackgroundAttributesCornersStyles)
{
    std::vector<std::string> const expected{
        "view",      "window", // the view comes into the window
        "view",      "window", // light; background and handedness
        "view",                // modes and attributes, the portfolio is pushed
        "portfolio", "view",
        "triad", // palette of the triad, the triad
        "portfolio", "view",
        "cube",                         // palette of the cube, the cube
        "portfolio", "highlight_style", // each style is defined, then set up
        "portfolio", "hidden_brep",
        "portfolio", "hidden_visu",
        "portfolio", "default_style",
        "portfolio", "hidden_pmi",
        "portfolio", "pmi_style",
        "portfolio", "hidden_drw",
        "portfolio", "drawing_style"};
    EXPECT_EQ(written(), expected);
}

} // namespace
} // namespace ZelVizBase
