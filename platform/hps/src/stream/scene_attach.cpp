// What comes after the last chunk: linking what was read, and handing it over.
#include "SceneImporter.h"
#include "definition_kinds.h"
#include "merge.h"
#include "references.h"
#include "shared_kits.h"
#include "structure.h"
#include "user_data.h"
#include <algorithm>

namespace HPS::scene
{
namespace
{

// Deeper trees, and more ways through the includes, than any model has would keep everybody busy for ever.
constexpr std::uint32_t deepest = 2000;
constexpr double mostPaths = 1e8;
constexpr FileNumber topNumber = 1;

} // namespace

void SceneImporter::checkWhole() const
{
    bool const whole = pending_.empty() && segments_.size() == segmentCount_ &&
                       segmentsRead_ == segmentCount_ && geometriesRead_ == geometryCount_;
    if (!whole) Reader::fail("something is missing in it");
}

// Owners and includes together must have no circle, and not too many ways through them.
void SceneImporter::checkIncludes() const
{
    auto const count = segments_.size();
    std::vector<std::vector<FileNumber>> below(count);
    std::vector<std::uint32_t> above(count), depth(count), order;
    std::vector<double> paths(count);
    auto const edge = [&](FileNumber from, FileNumber to) {
        below[from - 1].push_back(to - 1);
        ++above[to - 1];
    };
    for (FileNumber i = 0; i < count; ++i)
        if (owners_[i] != 0) edge(owners_[i], i + 1);
    for (auto const& include : includes_) {
        segment(include.target); // it is there
        edge(include.owner, include.target);
    }
    for (FileNumber i = 0; i < count; ++i)
        if (above[i] == 0) order.push_back(i), paths[i] = 1;
    double all = 0;
    for (std::size_t at = 0; at < order.size(); ++at) {
        auto const from = order[at];
        all += paths[from];
        if (depth[from] > deepest || all > mostPaths) Reader::fail("its includes go too deep");
        for (auto const to : below[from]) {
            paths[to] += paths[from];
            depth[to] = std::max(depth[to], depth[from] + 1);
            if (--above[to] == 0) order.push_back(to);
        }
    }
    if (order.size() != count) Reader::fail("a segment includes itself");
}

void SceneImporter::link()
{
    auto& all = store();
    for (auto& include : includes_) {
        if (include.target == topNumber) continue;
        auto const& made = addInclude(segment(include.owner), segment(include.target));
        if (!include.filter.empty()) all.filters[made.slot] = std::move(include.filter);
    }
    auto const markSource = [&](KeyIndex source) {
        if (auto* const segment = all.resolve<SegmentRecord>(source)) segment->isStyleSource = true;
    };
    for (auto const* const segment : segments_)
        if (segment->extras)
            for (auto const slot : segment->extras->styles) markSource(all.at<StyleRecord>(slot)->source);
    for (auto const* const portfolio : portfolios_)
        for (auto const& [name, source] : portfolio->styles) markSource(source);
    for (auto const& [reference, target] : references_) {
        if (target == 0) continue; // what it showed was gone already
        if (target > geometry_.size()) Reader::fail("a reference to what is not there");
        auto const slot = geometry_[target - 1];
        if (slot == 0) continue; // of a kind that is not known here
        reference->data.target = all.indexOf(slot);
        if (!check<ReferenceRecord>(reference->data, reference->box))
            Reader::fail("a reference to a reference");
        setTarget(reference->slot, slot);
    }
    ++all.definitionStamp;
}

void SceneImporter::attach(KeyIndex alternateRoot)
{
    auto& all = store();
    auto* const target = all.resolve<SegmentRecord>(target_);
    if (!target) throw IOException("the segment to import into is gone");
    if (auto* const portfolio = all.resolve<PortfolioRecord>(targetPortfolio_);
        portfolio && !portfolios_.empty())
        takeDefinitions(*portfolio);
    portfolios_.clear(); // they are in use
    auto& imported = top();
    moveContents(imported, *target);
    takeAttributes(imported, *target);
    if (auto* const root = all.resolve<SegmentRecord>(alternateRoot)) moveContents(*outside_, *root);
    // Where the file's own segments include the first one, it is now the target; what would close a circle in
    // its new place is left out.
    for (auto& include : includes_) {
        if (include.target != topNumber) continue;
        auto const* const made = createInclude(segment(include.owner), *target);
        if (made && !include.filter.empty()) all.filters[made->slot] = std::move(include.filter);
    }
    segments_.clear();
    remove(imported);
    if (!outside_->children.empty()) {
        showRoot(*outside_);
        outside_ = nullptr;
    }
}

void SceneImporter::takeDefinitions(PortfolioRecord& to)
{
    auto& first = *portfolios_.front();
    forEachDefinitionKind([&](auto const& kind) {
        for (auto& [name, value] : first.*kind.definitions)
            (to.*kind.definitions).insert_or_assign(name, std::move(value));
    });
    noteDefinitions(to);
    remove(first);
}

// As if each attribute were set on `to`.
void SceneImporter::takeAttributes(SegmentRecord& from, SegmentRecord& to)
{
    for (auto const& block : from.kits)
        withKit(block->kind, [&]<class Data>(std::type_identity<Data>) {
            auto data = valuesOf<Data>(to.kit(block->kind));
            merge(data, valuesOf<Data>(block.get()));
            to.setKit(block->kind, sharedKit<Data>(std::move(data)));
        });
    if (from.matrix) to.matrix = std::move(from.matrix);
    if (from.userData) {
        if (!to.userData) to.userData = std::make_unique<UserData>();
        from.userData->forEach(
            [&](UserData::Entry const& entry) { to.userData->set(entry.index, entry.bytes); });
    }
    to.isStyleSource = to.isStyleSource || from.isStyleSource;
    if (from.extras) {
        auto& own = to.rare();
        auto const& others = *from.extras;
        own.conditions.insert(own.conditions.end(), others.conditions.begin(), others.conditions.end());
        std::sort(own.conditions.begin(), own.conditions.end());
        own.conditions.erase(std::unique(own.conditions.begin(), own.conditions.end()), own.conditions.end());
        for (auto const index : others.portfolios)
            if (std::find(own.portfolios.begin(), own.portfolios.end(), index) == own.portfolios.end())
                own.portfolios.push_back(index);
        if (!others.materialPalette.empty()) own.materialPalette = others.materialPalette;
        if (others.textureMatrix) own.textureMatrix = std::move(from.extras->textureMatrix);
        if (others.priority) own.priority = others.priority;
    }
    to.boundsKnown = true; // so that those above hear of it
    invalidateBounds(to);
    invalidateBoundsAbove(to);
    noteChange(to, Change::Attributes | Change::Matrix | Change::Portfolio | Change::Bounding |
                       Change::Conditions | Change::Styles);
}

} // namespace HPS::scene
