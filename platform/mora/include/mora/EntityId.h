#pragma once
#include <compare>

namespace ZELVizCore
{

/// What an entity is. The same numbers mark the groups of a tree path.
enum class EntityType : unsigned int {
    Vertex = 10000,
    Edge = 10001,
    Face = 10002,
    Body = 10003,
    Cloud = 10004,
    Annotations = 10005,
    Visualisation = 10006,
    Group = 10007,
    Instance = 10008,
    Text = 10009,
    Views = 10010,
    Captures = 10012,
    UnknownPmi = 10100,
    Note = 10101,
    Datum = 10102,
    Dimension = 10103,
    GeometricTolerance = 10104,
    Roughness = 10105,
    FtaGeometry = 11000,
    FeatureTree = 30000,
    PartEntry = 40000, ///< a part's own entry beside the entry of its instance
    Brep = 80000,
    TopologyTree = 81000,
    Undefined = 0xffffffffu,
};

/// The number of a type, as it stands in a tree path.
constexpr unsigned long long ToValue(EntityType type)
{
    return static_cast<unsigned long long>(type);
}

/// The word that a user reads for a type; "Unknown" for those without one.
wchar_t const* ToWord(EntityType type);

/// Identity of a model entity for the host: a number that is unique within its parent and type.
class EntityId
{
public:
    unsigned long long id = 0;
    unsigned long long parentId = 0;
    EntityType type = EntityType::Undefined;

    EntityId() = default;
    EntityId(unsigned long long parent, EntityType entityType, unsigned long long entity)
        : id(entity), parentId(parent), type(entityType)
    {
    }

    /// True for everything in the annotations sub-tree: the group, views, captures and the annotations
    /// themselves.
    bool IsAnnotation() const;

    /// The type with that number, Undefined when there is none.
    static EntityType GetTypeFromInt(unsigned long long value);

    friend std::strong_ordering operator<=>(EntityId const&, EntityId const&) = default;
};

} // namespace ZELVizCore
