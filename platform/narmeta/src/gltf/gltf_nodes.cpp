#include "gltf_nodes.h"

#include "place_count.h"

#include <algorithm>
#include <cmath>

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

namespace NarMetaInfra
{
namespace
{
using Matrix4 = std::array<double, 16>;

constexpr double MillimetresPerMetre = 1000.0;

template <std::size_t Count> std::optional<std::array<double, Count>> numbers(QJsonValue const& value)
{
    auto const list = value.toArray();
    if (list.size() != static_cast<qsizetype>(Count)) return std::nullopt;
    std::array<double, Count> result;
    for (std::size_t i = 0; i < Count; ++i) {
        result[i] = list.at(static_cast<qsizetype>(i)).toDouble();
        if (!std::isfinite(result[i])) return std::nullopt;
    }
    return result;
}

// Column-major matrices for column vectors, as in the file, have the same layout as row-major ones for row
// vectors.
Matrix4 localMatrix(QJsonObject const& node)
{
    if (auto const matrix = numbers<16>(node["matrix"])) return *matrix;
    auto const t = numbers<3>(node["translation"]).value_or(std::array{0.0, 0.0, 0.0});
    auto const s = numbers<3>(node["scale"]).value_or(std::array{1.0, 1.0, 1.0});
    auto const [x, y, z, w] = numbers<4>(node["rotation"]).value_or(std::array{0.0, 0.0, 0.0, 1.0});
    std::array<std::array<double, 3>, 3> const axes = {
        {{1 - 2 * (y * y + z * z), 2 * (x * y + z * w), 2 * (x * z - y * w)},
         {2 * (x * y - z * w), 1 - 2 * (x * x + z * z), 2 * (y * z + x * w)},
         {2 * (x * z + y * w), 2 * (y * z - x * w), 1 - 2 * (x * x + y * y)}}};
    Matrix4 matrix{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            matrix[4 * row + column] = s[row] * axes[row][column];
    for (std::size_t column = 0; column < 3; ++column) matrix[12 + column] = t[column];
    matrix[15] = 1.0;
    return matrix;
}

// The model's axes x, y, z are the file's x, -z, y.
Matrix4 inModelSpace(Matrix4 const& file)
{
    constexpr std::array<std::size_t, 3> From = {0, 2, 1};
    constexpr std::array<double, 3> Sign = {1.0, -1.0, 1.0};
    Matrix4 model{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 3; ++column)
            model[4 * row + column] = Sign[row] * Sign[column] * file[4 * From[row] + From[column]];
    for (std::size_t column = 0; column < 3; ++column)
        model[12 + column] = Sign[column] * MillimetresPerMetre * file[12 + From[column]];
    model[15] = 1.0;
    return model;
}

// Nodes form a forest, so that a walk meets each of them once at most: `unmet` counts them down. A file that
// shares nodes could otherwise ask for twice as many at each level.
std::optional<std::vector<GltfNode>> nodesOf(QJsonArray const& indices, QJsonArray const& all,
                                             std::size_t depth, qsizetype& unmet)
{
    if (depth >= MostLevels) return std::nullopt;
    std::vector<GltfNode> nodes;
    for (auto const& index : indices) {
        auto const number = index.toInt(-1);
        if (number < 0 || number >= all.size() || unmet-- == 0) return std::nullopt;
        auto const source = all.at(number).toObject();
        GltfNode node{inModelSpace(localMatrix(source)), source.contains("mesh"), {}};
        auto children = nodesOf(source["children"].toArray(), all, depth + 1, unmet);
        if (!children) return std::nullopt;
        node.children = std::move(*children);
        if (node.hasMesh || !node.children.empty()) nodes.push_back(std::move(node));
    }
    return nodes;
}

template <class Visit> void forEachEntry(QJsonValue const& entries, Visit visit)
{
    auto const listed = entries.toArray();
    for (qsizetype i = 0; i < listed.size(); ++i) visit(QString::number(i), listed.at(i).toObject());
    auto const named = entries.toObject();
    for (auto entry = named.begin(); entry != named.end(); ++entry) visit(entry.key(), entry->toObject());
}
} // namespace

std::optional<std::vector<GltfNode>> readGltfNodes(QJsonObject const& document)
{
    auto const scene = document["scenes"].toArray().at(document["scene"].toInt(0)).toObject();
    auto const nodes = document["nodes"].toArray();
    qsizetype unmet = nodes.size();
    return nodesOf(scene["nodes"].toArray(), nodes, 0, unmet);
}

// The kernel follows numbers that are written as text, and entries that have names in place of numbers, too.
std::string refusalOfGltf(QJsonObject const& document)
{
    QHash<QString, std::size_t> numbers;
    std::vector<QJsonObject> nodes;
    forEachEntry(document["nodes"], [&](QString const& key, QJsonObject const& node) {
        numbers.insert(key, nodes.size());
        nodes.push_back(node);
    });
    auto const addNamed = [&](QJsonValue const& keys, std::vector<std::size_t>& found) {
        for (auto const& key : keys.toArray()) {
            auto const node =
                numbers.constFind(key.isString() ? key.toString() : QString::number(key.toInt(-1)));
            if (node != numbers.constEnd()) found.push_back(*node);
        }
    };
    UseGraph uses(nodes.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) addNamed(nodes[i]["children"], uses[i]);
    std::vector<std::size_t> roots;
    forEachEntry(document["scenes"],
                 [&](QString const&, QJsonObject const& scene) { addNamed(scene["nodes"], roots); });
    return refusalOfPlaces(uses, roots);
}
} // namespace NarMetaInfra
