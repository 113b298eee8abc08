#pragma once

#include <narmeta/pmi/PMIAnnotationSet.h>

#include <map>

namespace NarMetaPmi
{

/// The annotations of a reference or of the product, by the PID of their owner.
class PMIContainer
{
public:
    using Sets = std::vector<std::shared_ptr<PMIAnnotationSet>>;

    void AddAnnotationSet(std::wstring const& pid, std::shared_ptr<PMIAnnotationSet> set);
    /// For an owner whose PID changes.
    void RenameOwner(std::wstring const& from, std::wstring const& to);
    std::map<std::wstring, Sets> const& GetOwners() const { return sets_; }

    bool HasPMI() const { return !sets_.empty(); }
    /// Appends; false if the owner has none.
    bool GetAnnotationSets(std::wstring const& pid, Sets& sets) const;
    bool GetAnnotationView(NarMeta::Id id, std::shared_ptr<PMIAnnotationView>& view) const;
    bool GetAnnotationCapture(NarMeta::Id id, std::shared_ptr<PMICapture>& capture) const;

    /// @p type Any takes whatever has the id.
    bool GetAnnotation(NarMeta::Id id, PMIAnnotationType type,
                       std::shared_ptr<PMIAnnotation>& annotation) const;
    /// Ids of all annotations that are switched off, each once.
    std::vector<NarMeta::Id> GetHiddenAnnotations() const;
    bool GetActiveView(std::shared_ptr<PMIAnnotationView>& view) const;
    bool GetActiveCapture(std::shared_ptr<PMICapture>& capture) const;

    /// Kind, name and text of an annotation, or the name of a view, a capture or a set; empty for an unknown
    /// id.
    std::wstring ToolTip(NarMeta::Id id) const;

private:
    std::map<std::wstring, Sets> sets_;
};

} // namespace NarMetaPmi
