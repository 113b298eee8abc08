#pragma once

#include <narmeta/Colour.h>
#include <narmeta/visu/LineAttribute.h>

#include <memory>
#include <optional>
#include <vector>

namespace NarMetaVisu
{

class Material;

/// What a node, a face or an edge looks like; each aspect may be absent.
class Attributes : public NarMeta::Coloured
{
public:
    bool HasData() const { return GetColour() || GetAlpha() || line_ || !materials_.empty(); }

    void SetLineAttribute(LineAttribute const& line) { line_ = line; }
    bool GetLineAttribute(LineAttribute& line) const
    {
        if (line_) line = *line_;
        return line_.has_value();
    }

    void AddMaterial(std::shared_ptr<Material> material) { materials_.push_back(std::move(material)); }
    /// The first one is drawn.
    std::vector<std::shared_ptr<Material>> const& GetMaterials() const { return materials_; }

private:
    std::optional<LineAttribute> line_;
    std::vector<std::shared_ptr<Material>> materials_;
};

} // namespace NarMetaVisu
