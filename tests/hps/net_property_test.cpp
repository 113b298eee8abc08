// Net attributes of random scenes against a fold that is as plain as can be: one aspect at a time, path by
// path, with nothing remembered.
#include "net_attributes.h"
#include "support.h"
#include <random>
#include <set>

using namespace HPS;
using namespace HPS::scene;

namespace
{

using Kinds = VisibilityKinds::Kind;

// Three aspects, each with a lock of its own, are enough for locks to cross.
constexpr std::array kinds{VisibilityData::Faces, VisibilityData::Lines, VisibilityData::Text};
constexpr std::array lockTypes{AttributeLock::Type::VisibilityFaces, AttributeLock::Type::VisibilityLines,
                               AttributeLock::Type::VisibilityText};
using Values = std::array<std::optional<bool>, kinds.size()>;
using Locks = std::array<bool, kinds.size()>;

// What a segment sets, as the test knows it.
struct Model {
    Values values;
    Locks locks{}, overrides{};
    std::vector<std::string> conditions;
    struct Style {
        std::size_t source;
        std::string condition; // plain, or "not" and a name
        Locks filter{};
    };
    std::vector<Style> styles;
};

struct Net {
    Values values;
    Locks locked{};
    std::set<std::string> conditions;
};

void lay(Net& net, Model const& model, Locks const& held)
{
    for (std::size_t i = 0; i < kinds.size(); ++i)
        if (model.values[i] && !held[i]) net.values[i] = model.values[i];
    for (std::size_t i = 0; i < kinds.size(); ++i)
        net.locked[i] = (net.locked[i] || model.locks[i]) && !model.overrides[i];
}

class RandomScene
{
public:
    explicit RandomScene(unsigned seed) : random_(seed)
    {
        for (std::size_t i = 0; i < sourceCount; ++i) {
            keys_.push_back(Database::CreateRootSegment());
            models_.emplace_back();
            decorate(i);
        }
        keys_.push_back(Database::CreateRootSegment());
        models_.emplace_back();
        for (std::size_t i = 0; i < segmentCount; ++i) {
            keys_.push_back(keys_[pick(sourceCount, keys_.size())].Subsegment());
            models_.emplace_back();
        }
        for (std::size_t i = sourceCount; i < keys_.size(); ++i) decorate(i);
        for (std::size_t i = 0; i < includeCount; ++i)
            keys_[pick(sourceCount, keys_.size())].IncludeSegment(keys_[pick(sourceCount + 1, keys_.size())]);
    }
    ~RandomScene()
    {
        keys_[sourceCount].Delete();
        for (std::size_t i = 0; i < sourceCount; ++i) keys_[i].Delete();
    }

    // Sets or unsets something anywhere.
    void edit() { decorate(pick(0, keys_.size())); }

    // Every place of the scene, by children and includes, up to a depth.
    void check(NetFold& fold)
    {
        places_ = 0;
        check(fold, fold.root(), Net(), sourceCount, 0);
    }
    std::size_t places() const { return places_; }

private:
    static constexpr std::size_t sourceCount = 4, segmentCount = 14, includeCount = 6;

    std::size_t pick(std::size_t from, std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(from, below - 1)(random_);
    }
    bool chance(unsigned percent) { return pick(0, 100) < percent; }

    void decorate(std::size_t number)
    {
        auto& model = models_[number];
        auto key = keys_[number];
        auto visibility = key.GetVisibilityControl();
        auto locks = key.GetAttributeLockControl();
        model = {};
        key.UnsetVisibility().UnsetAttributeLock().UnsetConditions();
        key.GetStyleControl().UnsetEverything();
        VisibilityKit kit;
        for (std::size_t i = 0; i < kinds.size(); ++i) {
            if (chance(40)) {
                model.values[i] = chance(50);
                if (i == 0) visibility.SetFaces(*model.values[i]);
                if (i == 1) visibility.SetLines(*model.values[i]);
                if (i == 2) visibility.SetText(*model.values[i]);
            }
            if (chance(12)) locks.SetLock(lockTypes[i], model.locks[i] = true);
            if (chance(8)) locks.SetSubsegmentLockOverride(lockTypes[i], model.overrides[i] = true);
        }
        if (number < sourceCount) return;
        if (chance(30)) {
            model.conditions = {chance(50) ? "a" : "b"};
            key.SetCondition(model.conditions[0]);
        }
        for (auto i = pick(0, 3); i-- > 0;) {
            Model::Style style;
            style.source = pick(0, sourceCount);
            if (chance(50)) style.condition = chance(70) ? (chance(50) ? "a" : "b") : "not a";
            auto pushed = key.GetStyleControl().PushSegment(keys_[style.source], UTF8(style.condition));
            for (std::size_t k = 0; k < kinds.size(); ++k)
                if (chance(15)) {
                    pushed.SetFilter(lockTypes[k]);
                    style.filter[k] = true;
                }
            model.styles.push_back(style);
        }
    }

    void check(NetFold& fold, NetAttributes const& above, Net net, std::size_t number, int depth)
    {
        auto const& model = models_[number];
        net.conditions.insert(model.conditions.begin(), model.conditions.end());
        for (auto const& style : model.styles) {
            bool const negated = style.condition.starts_with("not ");
            auto const name = negated ? style.condition.substr(4) : style.condition;
            if (!name.empty() && net.conditions.contains(name) == negated) continue;
            auto held = net.locked;
            for (std::size_t i = 0; i < kinds.size(); ++i) held[i] = held[i] || style.filter[i];
            lay(net, models_[style.source], held);
        }
        lay(net, model, net.locked);

        auto const& segment = *store().resolve<SegmentRecord>(keys_[number]);
        auto const here = fold.step(above, segment);
        ++places_;
        auto const& data = here.state->get<VisibilityData>();
        for (std::size_t i = 0; i < kinds.size(); ++i) {
            auto const got = data.isSet & VisibilityData::bit(kinds[i])
                                 ? std::optional(data.shows(kinds[i], false))
                                 : std::nullopt;
            ASSERT_EQ(got, net.values[i]) << "aspect " << i << " at depth " << depth;
        }
        if (depth == 6) return;
        auto const numberOf = [&](SegmentKey const& key) {
            return static_cast<std::size_t>(std::find(keys_.begin(), keys_.end(), key) - keys_.begin());
        };
        SegmentKeyArray children;
        keys_[number].ShowSubsegments(children);
        for (auto const& child : children) check(fold, here, net, numberOf(child), depth + 1);
        IncludeKeyArray includes;
        keys_[number].ShowIncludes(includes);
        for (auto const& include : includes)
            check(fold, fold.through(here, *store().resolve<IncludeRecord>(include)), net,
                  numberOf(include.GetTarget()), depth + 1);
    }

    std::mt19937 random_;
    std::vector<SegmentKey> keys_; // sources of styles, the root, and all below it
    std::vector<Model> models_;    // beside them
    std::size_t places_ = 0;
};

TEST(NetOfRandomScenes, IsThatOfThePlainFold)
{
    std::size_t places = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        RandomScene scene(seed);
        NetFold fold; // remembers over the edits
        for (int step = 0; step < 12; ++step) {
            scene.check(fold);
            if (testing::Test::HasFatalFailure()) return;
            places += scene.places();
            scene.edit();
        }
    }
    EXPECT_GT(places, 10'000u) << "scenes large enough to mean something";
}

} // namespace
