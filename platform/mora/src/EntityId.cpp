#include <algorithm>
#include <iterator>
#include <mora/EntityId.h>

namespace ZELVizCore
{

namespace
{

struct Row {
    EntityType type;
    wchar_t const* word;
};

constexpr Row rows[] = {
    {EntityType::Vertex, L"Vertex"},
    {EntityType::Edge, L"Edge"},
    {EntityType::Face, L"Face"},
    {EntityType::Body, L"Body"},
    {EntityType::Cloud, L"Cloud"},
    {EntityType::Annotations, L"Annotations Group"},
    {EntityType::Visualisation, L"Vis"},
    {EntityType::Group, L"Group"},
    {EntityType::Instance, L"Instance"},
    {EntityType::Text, L"Text"},
    {EntityType::Views, L"Views"},
    {EntityType::Captures, L"Captures"},
    {EntityType::UnknownPmi, L"Unknown PMI"},
    {EntityType::Note, L"Note"},
    {EntityType::Datum, L"Datum"},
    {EntityType::Dimension, L"Dimension"},
    {EntityType::GeometricTolerance, L"GeomTol"},
    {EntityType::Roughness, L"Roughness"},
    {EntityType::FtaGeometry, L"FTA Geometry"},
    {EntityType::FeatureTree, L"Unknown"},
    {EntityType::PartEntry, L"Unknown"},
    {EntityType::Brep, L"Unknown"},
    {EntityType::TopologyTree, L"Unknown"},
};

template <class Matches> Row const* findRow(Matches matches)
{
    auto const row = std::ranges::find_if(rows, matches);
    return row == std::end(rows) ? nullptr : row;
}

} // namespace

wchar_t const* ToWord(EntityType type)
{
    Row const* row = findRow([type](Row const& r) { return r.type == type; });
    return row ? row->word : L"Unknown";
}

bool EntityId::IsAnnotation() const
{
    switch (type) {
    case EntityType::Annotations:
    case EntityType::Views:
    case EntityType::Captures:
    case EntityType::UnknownPmi:
    case EntityType::Note:
    case EntityType::Datum:
    case EntityType::Dimension:
    case EntityType::GeometricTolerance:
    case EntityType::Roughness:
        return true;
    case EntityType::Vertex:
    case EntityType::Edge:
    case EntityType::Face:
    case EntityType::Body:
    case EntityType::Cloud:
    case EntityType::Visualisation:
    case EntityType::Group:
    case EntityType::Instance:
    case EntityType::Text:
    case EntityType::FtaGeometry:
    case EntityType::FeatureTree:
    case EntityType::PartEntry:
    case EntityType::Brep:
    case EntityType::TopologyTree:
    case EntityType::Undefined:
        return false;
    }
    return false;
}

EntityType EntityId::GetTypeFromInt(unsigned long long value)
{
    Row const* row = findRow([value](Row const& r) { return ToValue(r.type) == value; });
    return row ? row->type : EntityType::Undefined;
}

} // namespace ZELVizCore
