// One description of every value serves both ways: transfer(writer, value) puts it down, transfer(reader,
// value) fills it. Kits travel by their tables of aspects, structs by their lists of fields.
#pragma once
#include "element_codec.h"
#include "enumerators.h"
#include "fields.h"
#include "kit_values.h"

namespace HPS::scene
{

template <class T, template <class...> class Template> inline constexpr bool isA = false;
template <class... A, template <class...> class Template>
inline constexpr bool isA<Template<A...>, Template> = true;

template <class T>
concept AspectTable = requires
{
    T::aspects();
};
template <class T>
concept AspectKit = requires(T kit)
{
    typename T::Data;
    kit.edit([](typename T::Data&) {});
};

template <class Archive, class T> void transfer(Archive& archive, T& value);

// Each aspect that is set: its id, then its value behind the number of its bytes, so that who does not know
// the id can pass it over.
template <AspectTable Data> void writeAspects(Writer& out, Data const& data)
{
    std::size_t count = 0;
    forEachAspect<Data>([&](auto const& aspect) { count += aspect.get(data).has_value(); });
    out.size(count);
    forEachAspect<Data>([&](auto const& aspect) {
        if (auto const& value = aspect.get(data)) {
            out.size(aspect.id);
            out.sized([&] { transfer(out, *value); });
        }
    });
}

template <AspectTable Data> void readAspects(Reader& in, Data& data)
{
    for (auto count = in.count(); count > 0; --count) {
        auto const id = in.size();
        auto part = in.sized();
        forEachAspect<Data>([&](auto const& aspect) {
            if (aspect.id != id) return;
            typename std::decay_t<decltype(aspect)>::Value value{};
            transfer(part, value);
            aspect.put(data, std::move(value));
        });
    }
}

// The fields in their order, behind the number of their bytes. Later versions may add fields at the end:
// those that are missing keep their defaults, those that are not known are passed over.
template <HasFields Data> void writeFields(Writer& out, Data const& data)
{
    out.sized([&] { std::apply([&](auto... field) { (transfer(out, data.*field), ...); }, Data::fields()); });
}

template <HasFields Data> void readFields(Reader& in, Data& data)
{
    auto part = in.sized();
    auto const read = [&](auto& field) {
        if (part.left() > 0) transfer(part, field);
    };
    std::apply([&](auto... field) { (read(data.*field), ...); }, Data::fields());
}

template <class V> void transferList(Reader& in, std::vector<V>& list)
{
    auto const count = in.count();
    in.context().allowance.take(count, sizeof(V));
    if (std::is_same_v<V, MaterialChannel> && count > MaterialData::maximumLayers)
        Reader::fail("a material of too many layers");
    list.clear();
    list.reserve(count);
    for (std::size_t i = 0; i < count; ++i) transfer(in, list.emplace_back());
}
template <class V> void transferList(Writer& out, std::vector<V> const& list)
{
    out.size(list.size());
    for (auto const& value : list) transfer(out, value);
}

// Lists that have a form of their own; of whole numbers there are facelists alone.
#define HPS_LIST_FORM(Element, Name)                                                                         \
    inline void transferList(Writer& out, std::vector<Element> const& list)                                  \
    {                                                                                                        \
        write##Name(out, list);                                                                              \
    }                                                                                                        \
    inline void transferList(Reader& in, std::vector<Element>& list)                                         \
    {                                                                                                        \
        read##Name(in, list);                                                                                \
    }
HPS_LIST_FORM(bool, Flags)
HPS_LIST_FORM(RGBAColor, Colors)
HPS_LIST_FORM(Vector, Directions)
HPS_LIST_FORM(int, Facelist)
HPS_LIST_FORM(float, Array)
HPS_LIST_FORM(Point, Array)
#undef HPS_LIST_FORM

template <class V> void transferBytes(Writer& out, std::vector<V> const& list)
{
    out.size(list.size());
    out.raw(std::as_bytes(std::span(list)));
}
template <class V> void transferBytes(Reader& in, std::vector<V>& list)
{
    auto const bytes = in.take(in.count());
    list.resize(bytes.size());
    if (!bytes.empty()) std::memcpy(list.data(), bytes.data(), bytes.size());
}

// What is shared and never changed: whether it is there, and then its value.
template <class Archive, class Shared> void transferShared(Archive& archive, Shared& shared)
{
    using T = std::remove_const_t<typename std::remove_const_t<Shared>::element_type>;
    if constexpr (Archive::reads) {
        shared.reset();
        if (!archive.flag()) return;
        auto value = std::make_shared<T>();
        transfer(archive, *value);
        shared = std::move(value);
    } else {
        archive.flag(shared != nullptr);
        if (shared) transfer(archive, *shared);
    }
}

// Leaves of the description.
inline void transferLeaf(Writer& out, UTF8 const& text)
{
    out.text(text.Str());
}
inline void transferLeaf(Reader& in, UTF8& text)
{
    text = UTF8(in.text());
}
inline void transferLeaf(Writer& out, MatrixKit const& matrix)
{
    for (int i = 0; i < 16; ++i) out.scalar(matrix.Data()[i]);
}
inline void transferLeaf(Reader& in, MatrixKit& matrix)
{
    std::array<float, 16> elements{};
    for (auto& element : elements) element = in.scalar<float>();
    matrix = MatrixKit(elements.data());
    if (!matrix.IsFinite()) Reader::fail("a matrix of numbers that are none");
}
// Keys inside kits name segments.
inline void transferLeaf(Writer& out, KeyIndex const& segment)
{
    out.scalar(out.numbers ? out.numbers->numberOf(segment) : FileNumber(0));
}
inline void transferLeaf(Reader& in, KeyIndex& segment)
{
    segment = in.segment();
}
inline void transferLeaf(Writer& out, ImageDefinition const& image)
{
    out.scalar(out.numbers ? out.numbers->numberOf(image.Portfolio().Index()) : FileNumber(0));
    out.text(image.Name().Str());
}
inline void transferLeaf(Reader& in, ImageDefinition& image)
{
    auto const portfolio = in.portfolio();
    UTF8 const name(in.text());
    if (portfolio.slot != 0) image = ImageDefinition(Key(portfolio), name);
}
inline void transferLeaf(Writer& out, LinePatternKit const& kit)
{
    LinePattern::Join join{};
    bool const hasJoin = kit.ShowJoin(join);
    transferList(out, kit.parallels());
    transfer(out, hasJoin);
    if (hasJoin) transfer(out, join);
}
inline void transferLeaf(Reader& in, LinePatternKit& kit)
{
    std::vector<LinePatternParallel> parallels;
    transferList(in, parallels);
    kit.SetParallels(std::move(parallels));
    if (!in.flag()) return;
    LinePattern::Join join{};
    transfer(in, join);
    kit.SetJoin(join);
}
inline void transferLeaf(Writer& out, TrimKit const& trim)
{
    writeFields(out, trim.data());
}
inline void transferLeaf(Reader& in, TrimKit& trim)
{
    TrimData data;
    readFields(in, data);
    trim.SetOperation(data.operation).SetPoints(std::move(data.points));
}
inline void transferLeaf(Writer& out, ComplexMaterial const& material)
{
    transfer(out, material.index);
    writeAspects(out, material.values());
}
inline void transferLeaf(Reader& in, ComplexMaterial& material)
{
    transfer(in, material.index);
    MaterialData channels;
    readAspects(in, channels);
    material.channels = channels == MaterialData() ? nullptr : std::make_shared<MaterialData const>(channels);
}
template <class T> void transferLeaf(Writer& out, ElementValues<T> const& elements)
{
    transferList(out, elements.isSet);
    transfer(out, elements.values);
}
template <class T> void transferLeaf(Reader& in, ElementValues<T>& elements)
{
    transferList(in, elements.isSet);
    transfer(in, elements.values);
    if (!elements.isSet.empty() && elements.isSet.size() != elements.values.size())
        Reader::fail("values and their marks differ in number");
}

template <class Archive, class T>
concept Leaf = requires(Archive& archive, T& value)
{
    transferLeaf(archive, value);
};

template <class Archive, class T> void transfer(Archive& archive, T& value)
{
    using V = std::remove_const_t<T>;
    auto const each = [&](auto&... parts) { (transfer(archive, parts), ...); };
    if constexpr (std::is_same_v<V, bool>) {
        if constexpr (Archive::reads)
            value = archive.flag();
        else
            archive.flag(value);
    } else if constexpr (std::is_arithmetic_v<V>) {
        if constexpr (Archive::reads)
            value = archive.template scalar<V>();
        else
            archive.scalar(value);
    } else if constexpr (std::is_enum_v<V>) {
        if constexpr (Archive::reads) {
            auto const number = archive.template scalar<std::uint32_t>();
            // Lock types go beyond the numbers that are looked at, and any of them does no harm.
            if (!std::is_same_v<V, AttributeLock::Type> && !isEnumerator<V>(number))
                Reader::fail("a number that stands for nothing");
            value = static_cast<V>(number);
        } else {
            archive.scalar(static_cast<std::uint32_t>(value));
        }
    } else if constexpr (Leaf<Archive, T>) {
        transferLeaf(archive, value);
    } else if constexpr (isA<V, std::vector>) {
        if constexpr (sizeof(typename V::value_type) == 1 && !std::is_same_v<typename V::value_type, bool>)
            transferBytes(archive, value);
        else
            transferList(archive, value);
    } else if constexpr (isA<V, std::optional>) {
        bool isSet = value.has_value();
        transfer(archive, isSet);
        if constexpr (Archive::reads) {
            value.reset();
            if (isSet) value.emplace();
        }
        if (isSet) transfer(archive, *value);
    } else if constexpr (isA<V, std::shared_ptr>) {
        transferShared(archive, value);
    } else if constexpr (isA<V, std::tuple> || std::is_same_v<V, CubeMapImages>) {
        std::apply(each, value);
    } else if constexpr (AspectTable<V>) {
        if constexpr (Archive::reads)
            readAspects(archive, value);
        else
            writeAspects(archive, value);
    } else if constexpr (HasFields<V>) {
        if constexpr (Archive::reads)
            readFields(archive, value);
        else
            writeFields(archive, value);
    } else if constexpr (AspectKit<V>) {
        if constexpr (Archive::reads)
            value.edit([&](typename V::Data& data) { transfer(archive, data); });
        else
            transfer(archive, value.data());
    } else {
        std::apply(each, fields(value));
    }
}

} // namespace HPS::scene
