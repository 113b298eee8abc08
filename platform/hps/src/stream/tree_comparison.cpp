#include "tree_comparison.h"
#include "definition_kinds.h"
#include "geometry_records.h"
#include "stored_kit.h"
#include "transfer.h"
#include "user_data.h"
#include <algorithm>
#include <deque>
#include <unordered_map>

namespace HPS::scene
{
namespace
{

using namespace std::string_literals;

class Comparison
{
public:
    std::string run(SegmentRecord const* a, SegmentRecord const* b);

private:
    // Each is true where both are alike, and else writes down what is not, from the inside out.
    template <class T> bool alike(T const& a, T const& b);
    template <class V> bool listsAlike(V const& a, V const& b);
    template <class Data> bool aspectsAlike(Data const& a, Data const& b);
    template <class Data> bool fieldsAlike(Data const& a, Data const& b);
    bool segmentsAlike(SegmentRecord const& a, SegmentRecord const& b);
    bool extrasAlike(SegmentExtras const& a, SegmentExtras const& b);
    bool kitsAlike(SegmentRecord const& a, SegmentRecord const& b);
    bool linksAlike(SegmentRecord const& a, SegmentRecord const& b);
    bool geometryAlike(SlotIndex a, SlotIndex b);
    bool portfoliosAlike(PortfolioRecord const& a, PortfolioRecord const& b);
    bool filtersAlike(SlotIndex a, SlotIndex b);
    // Holds from now on that the two objects stand at the same place. False if they do not.
    bool pair(SlotIndex a, SlotIndex b);
    bool keysAlike(KeyIndex a, KeyIndex b);

    bool differ(std::string what) { return difference_ = std::move(what), false; }
    bool in(std::string const& where, bool same)
    {
        if (!same) difference_ = where + (difference_.empty() ? ""s : " ") + difference_;
        return same;
    }
    template <class T> bool in(std::string const& where, T const& a, T const& b)
    {
        return in(where, alike(a, b));
    }

    std::string difference_;
    std::unordered_map<SlotIndex, SlotIndex> pairs_, backwards_;
    struct Open {
        SlotIndex a, b;
        std::string path;
    };
    std::deque<Open> open_; // segments and portfolios
    std::string path_;      // of what is looked at
};

template <class V> bool Comparison::listsAlike(V const& a, V const& b)
{
    if (a.size() != b.size())
        return differ("has " + std::to_string(a.size()) + " elements here and " + std::to_string(b.size()) +
                      " there");
    for (std::size_t i = 0; i < a.size(); ++i)
        if (typename V::value_type const x = a[i], y = b[i]; !alike(x, y))
            return in("[" + std::to_string(i) + "]", false);
    return true;
}

template <class Data> bool Comparison::aspectsAlike(Data const& a, Data const& b)
{
    bool same = true;
    forEachAspect<Data>([&](auto const& aspect) {
        same = same && in(std::string(aspect.name), aspect.get(a), aspect.get(b));
    });
    return same;
}

template <class Data> bool Comparison::fieldsAlike(Data const& a, Data const& b)
{
    bool same = true;
    std::size_t number = 0;
    auto const compare = [&](auto field) {
        same = same && in("field " + std::to_string(++number), a.*field, b.*field);
    };
    std::apply([&](auto... field) { (compare(field), ...); }, Data::fields());
    return same;
}

template <class T> bool Comparison::alike(T const& a, T const& b)
{
    if constexpr (std::is_same_v<T, KeyIndex>) {
        return keysAlike(a, b);
    } else if constexpr (std::is_same_v<T, ImageDefinition>) {
        return in("image",
                  keysAlike(a.Portfolio().Index(), b.Portfolio().Index()) && alike(a.Name(), b.Name()));
    } else if constexpr (isA<T, std::optional>) {
        if (a.has_value() != b.has_value()) return differ(a ? "is set here alone" : "is set there alone");
        return !a || alike(*a, *b);
    } else if constexpr (isA<T, std::shared_ptr>) {
        if ((a == nullptr) != (b == nullptr))
            return differ(a ? "is there here alone" : "is there there alone");
        return a == b || alike(*a, *b);
    } else if constexpr (isA<T, std::tuple> || std::is_same_v<T, CubeMapImages>) {
        return [&]<std::size_t... I>(std::index_sequence<I...>)
        {
            return (in("part " + std::to_string(I), std::get<I>(a), std::get<I>(b)) && ...);
        }
        (std::make_index_sequence<std::tuple_size_v<T>>());
    } else if constexpr (isA<T, std::vector>) {
        if constexpr (std::is_arithmetic_v<typename T::value_type>)
            if (a == b) return true;
        return listsAlike(a, b);
    } else if constexpr (AspectTable<T>) {
        return aspectsAlike(a, b);
    } else if constexpr (AspectKit<T>) {
        return alike(a.data(), b.data());
    } else if constexpr (HasFields<T>) {
        return fieldsAlike(a, b);
    } else if constexpr (isA<T, ElementValues>) {
        return in("marks", a.isSet, b.isSet) && in("values", a.values, b.values);
    } else if constexpr (requires { a == b; }) {
        return a == b || differ("differs");
    } else {
        return alike(std::apply([](auto const&... part) { return std::tuple(part...); }, fields(a)),
                     std::apply([](auto const&... part) { return std::tuple(part...); }, fields(b)));
    }
}

bool Comparison::pair(SlotIndex a, SlotIndex b)
{
    auto const [forwards, isNew] = pairs_.emplace(a, b);
    auto const [back, isNewBack] = backwards_.emplace(b, a);
    if (forwards->second != b || back->second != a) return differ("leads to another place");
    if (!isNew) return true;
    auto const& all = store();
    if (auto const* const geometry = all.at<GeometryRecord>(a)) {
        auto const* const other = all.at<GeometryRecord>(b);
        return other ? pair(geometry->owner, other->owner) : differ("leads to geometry here alone");
    }
    open_.push_back({a, b, path_});
    return true;
}

bool Comparison::keysAlike(KeyIndex a, KeyIndex b)
{
    auto const& all = store();
    bool const here = all.resolve(a), there = all.resolve(b);
    if (here != there) return differ(here ? "leads nowhere there" : "leads nowhere here");
    return !here || pair(a.slot, b.slot);
}

bool Comparison::filtersAlike(SlotIndex a, SlotIndex b)
{
    auto const* const here = store().filterOf(a);
    auto const* const there = store().filterOf(b);
    return in("filter", here ? *here : Store::Filter(), there ? *there : Store::Filter());
}

using UserDataList = std::vector<std::tuple<std::int64_t, ByteArray>>;
UserDataList listOf(std::unique_ptr<UserData> const& data)
{
    UserDataList list;
    if (data)
        data->forEach([&](UserData::Entry const& entry) {
            list.emplace_back(entry.index, ByteArray(entry.bytes.begin(), entry.bytes.end()));
        });
    return list;
}

std::optional<MatrixKit> valueOf(Pooled<MatrixKit> const& matrix)
{
    return matrix ? std::optional(*matrix) : std::nullopt;
}

std::vector<SlotIndex> slotsOf(SlotList const& list)
{
    return {list.begin(), list.end()};
}

std::vector<UTF8> conditionsOf(SegmentExtras const& extras)
{
    std::vector<UTF8> names;
    for (auto const condition : extras.conditions) names.emplace_back(store().conditionName(condition));
    std::sort(names.begin(), names.end());
    return names;
}

bool Comparison::kitsAlike(SegmentRecord const& a, SegmentRecord const& b)
{
    bool same = true;
    for (unsigned number = 0; same && number < static_cast<unsigned>(KitKind::Count); ++number) {
        auto const kind = static_cast<KitKind>(number);
        auto const* const here = a.kit(kind);
        auto const* const there = b.kit(kind);
        if (!here && !there) continue;
        withKit(kind, [&]<class Data>(std::type_identity<Data>) {
            same = in(nameOf(kind), valuesOf<Data>(here), valuesOf<Data>(there));
        });
    }
    return same;
}

bool Comparison::linksAlike(SegmentRecord const& a, SegmentRecord const& b)
{
    auto const& all = store();
    auto const here = slotsOf(a.includes), there = slotsOf(b.includes);
    if (here.size() != there.size()) return differ("number of includes differs");
    for (std::size_t i = 0; i < here.size(); ++i) {
        bool const same = filtersAlike(here[i], there[i]) && pair(all.at<IncludeRecord>(here[i])->target,
                                                                  all.at<IncludeRecord>(there[i])->target);
        if (!in("include " + std::to_string(i), same)) return false;
    }
    return true;
}

bool Comparison::extrasAlike(SegmentExtras const& a, SegmentExtras const& b)
{
    auto const& all = store();
    if (a.styles.size() != b.styles.size()) return differ("number of styles differs");
    for (std::size_t i = 0; i < a.styles.size(); ++i) {
        auto const& here = *all.at<StyleRecord>(a.styles[i]);
        auto const& there = *all.at<StyleRecord>(b.styles[i]);
        bool const same =
            in("name", here.name, there.name) && in("source", here.source, there.source) &&
            in("condition", all.conditionName(here.condition), all.conditionName(there.condition)) &&
            filtersAlike(here.slot, there.slot);
        if (!in("style " + std::to_string(i), same)) return false;
    }
    return in("conditions", conditionsOf(a), conditionsOf(b)) &&
           in("portfolios", a.portfolios, b.portfolios) &&
           in("material palette", a.materialPalette, b.materialPalette) &&
           in("texture matrix", valueOf(a.textureMatrix), valueOf(b.textureMatrix)) &&
           in("priority", a.priority, b.priority);
}

bool Comparison::geometryAlike(SlotIndex a, SlotIndex b)
{
    auto const& here = *store().at<GeometryRecord>(a);
    auto const& there = *store().at<GeometryRecord>(b);
    if (here.type != there.type)
        return differ("is a "s + nameOfGeometry(here.type) + " here and a " + nameOfGeometry(there.type) +
                      " there");
    bool same = pair(a, b) && in("priority", here.hasPriority, there.hasPriority) &&
                in("priority", here.priority, there.priority) &&
                in("user data", listOf(here.userData), listOf(there.userData));
    visitGeometry(here, [&]<class R>(R const& typed) {
        same = same && alike(typed.data, static_cast<R const&>(there).data);
        same = in(nameOfGeometry(R::family), same);
    });
    return same;
}

bool Comparison::segmentsAlike(SegmentRecord const& a, SegmentRecord const& b)
{
    static SegmentExtras const none{};
    auto const& all = store();
    bool const same = in("matrix", valueOf(a.matrix), valueOf(b.matrix)) && kitsAlike(a, b) &&
                      in("user data", listOf(a.userData), listOf(b.userData)) && linksAlike(a, b) &&
                      extrasAlike(a.extras ? *a.extras : none, b.extras ? *b.extras : none);
    if (!same) return false;
    auto const geometryHere = slotsOf(a.geometry), geometryThere = slotsOf(b.geometry);
    if (geometryHere.size() != geometryThere.size()) return differ("number of geometries differs");
    for (std::size_t i = 0; i < geometryHere.size(); ++i)
        if (!in("geometry " + std::to_string(i), geometryAlike(geometryHere[i], geometryThere[i])))
            return false;
    auto const here = slotsOf(a.children), there = slotsOf(b.children);
    if (here.size() != there.size()) return differ("number of children differs");
    auto const path = path_;
    for (std::size_t i = 0; i < here.size(); ++i) {
        std::string const name(all.at<SegmentRecord>(here[i])->name);
        std::string const nameThere(all.at<SegmentRecord>(there[i])->name);
        path_ = path + name + '/';
        if (!in("name of child " + std::to_string(i), name, nameThere) || !pair(here[i], there[i]))
            return path_ = path, false;
    }
    return path_ = path, true;
}

bool Comparison::portfoliosAlike(PortfolioRecord const& a, PortfolioRecord const& b)
{
    bool same = true;
    forEachDefinitionKind([&](auto const& kind) {
        auto const& here = a.*kind.definitions;
        auto const& there = b.*kind.definitions;
        std::string const what(kind.name);
        if (same && here.size() != there.size()) same = differ("number of definitions differs: " + what);
        for (auto x = here.begin(), y = there.begin(); same && x != here.end(); ++x, ++y)
            same =
                in(what + " \"" + x->first + '"', alike(x->first, y->first) && alike(x->second, y->second));
    });
    return same;
}

std::string Comparison::run(SegmentRecord const* a, SegmentRecord const* b)
{
    if (!a || !b) return "there is no segment";
    bool same = pair(a->slot, b->slot);
    auto const& all = store();
    while (same && !open_.empty()) {
        auto const [here, there, path] = open_.front();
        open_.pop_front();
        path_ = path;
        if (auto const* const segment = all.at<SegmentRecord>(here)) {
            auto const* const other = all.at<SegmentRecord>(there);
            same = other ? segmentsAlike(*segment, *other) : differ("is a segment here alone");
        } else if (auto const* const portfolio = all.at<PortfolioRecord>(here)) {
            auto const* const other = all.at<PortfolioRecord>(there);
            same = other ? portfoliosAlike(*portfolio, *other) : differ("is a portfolio here alone");
        }
    }
    return same ? std::string() : path_ + ": " + difference_;
}

} // namespace

std::string firstDifference(SegmentKey const& a, SegmentKey const& b)
{
    return Comparison().run(store().resolve<SegmentRecord>(a), store().resolve<SegmentRecord>(b));
}

} // namespace HPS::scene
