#include "geometry_codec.h"
#include "structure.h"
#include "transfer.h"
#include "user_data.h"

namespace HPS::scene
{
namespace
{

template <class F, class... R> void withRecord(TypeList<R...>, std::string_view kind, F&& f)
{
    ((nameOfGeometry(R::family) == kind && (f(std::type_identity<R>()), true)) || ...);
}

// What a shell or mesh may hold beside values for its elements, which the database checks.
bool isSound(PolyhedronExtras const& extras)
{
    auto const width = extras.parameterWidth;
    if (width == 0) return extras.vertexParameters.empty() && extras.hasParameters.empty();
    auto const vertices = extras.vertexParameters.size() / width;
    return extras.vertexParameters.size() % width == 0 &&
           (extras.hasParameters.empty() || extras.hasParameters.size() == vertices);
}

} // namespace

void writeUserData(Writer& out, UserData const* data)
{
    out.size(data ? data->size() : 0);
    if (!data) return;
    data->forEach([&](UserData::Entry const& entry) {
        out.scalar(entry.index);
        out.size(entry.bytes.size());
        out.raw(std::as_bytes(entry.bytes));
    });
}

std::unique_ptr<UserData> readUserData(Reader& in)
{
    auto const count = in.count(sizeof(std::int64_t) + 1);
    if (count == 0) return nullptr;
    in.context().allowance.take(count, sizeof(std::int64_t) + sizeof(std::uint32_t));
    auto data = std::make_unique<UserData>();
    std::int64_t last = 0;
    for (std::size_t i = 0; i < count; ++i) {
        auto const index = in.scalar<std::int64_t>();
        if (i > 0 && index <= last) Reader::fail("user data out of order");
        last = index;
        auto const bytes = in.take(in.count());
        data->append(index, {reinterpret_cast<byte const*>(bytes.data()), bytes.size()});
    }
    return data;
}

void writeGeometry(Writer& out, GeometryRecord const& geometry)
{
    visitGeometry(geometry, [&]<class R>(R const& record) {
        if constexpr (std::is_same_v<R, ReferenceRecord>) {
            out.scalar(out.numbers ? out.numbers->numberOf(record.data.target) : FileNumber(0));
            transfer(out, record.data.modellingMatrix);
        } else {
            transfer(out, record.data);
        }
    });
    out.flag(geometry.hasPriority);
    if (geometry.hasPriority) out.scalar(geometry.priority);
    writeUserData(out, geometry.userData.get());
}

GeometryRecord* readGeometry(Reader& in, std::string_view kind, SegmentRecord& owner,
                             std::vector<OpenReference>& open)
{
    GeometryRecord* made = nullptr;
    withRecord(GeometryRecords(), kind, [&]<class R>(std::type_identity<R>) {
        in.context().allowance.take(1, sizeof(R));
        R value;
        FileNumber target = 0;
        if constexpr (std::is_same_v<R, ReferenceRecord>) {
            target = in.scalar<FileNumber>();
            transfer(in, value.data.modellingMatrix);
        } else {
            transfer(in, value.data);
            if constexpr (requires { value.data.extras; })
                if (value.data.extras && !isSound(*value.data.extras))
                    Reader::fail("vertex parameters that do not fit together");
            if (!check<R>(value.data, value.box)) Reader::fail("a geometry that is none");
        }
        value.hasPriority = in.flag();
        if (value.hasPriority) value.priority = in.scalar<int>();
        value.userData = readUserData(in);
        auto& record = store().create<R>(R::family);
        record.data = std::move(value.data);
        record.hasPriority = value.hasPriority;
        record.priority = value.priority;
        record.userData = std::move(value.userData);
        record.box = value.box;
        record.owner = owner.slot;
        record.place = owner.geometry.push_back(record.slot);
        invalidateBounds(owner);
        noteChange(owner, Change::Structure);
        if constexpr (std::is_same_v<R, ReferenceRecord>) open.push_back({&record, target});
        made = &record;
    });
    return made;
}

} // namespace HPS::scene
