#pragma once

#include <narmeta/pmi/PMIAnnotationView.h>
#include <narmeta/pmi/PMICapture.h>

namespace NarMetaPmi
{

/// Views and captures made under one drawing standard.
class PMIAnnotationSet : public PMIBase
{
public:
    using PMIBase::PMIBase;

    void SetStandard(std::wstring standard) { standard_ = std::move(standard); }
    /// May be empty.
    std::wstring const& GetStandard() const { return standard_; }

    void AddView(std::shared_ptr<PMIAnnotationView> view) { views_.push_back(std::move(view)); }
    void AddCapture(std::shared_ptr<PMICapture> capture) { captures_.push_back(std::move(capture)); }
    std::vector<std::shared_ptr<PMIAnnotationView>> const& GetViews() const { return views_; }
    std::vector<std::shared_ptr<PMICapture>> const& GetCaptures() const { return captures_; }

private:
    std::wstring standard_;
    std::vector<std::shared_ptr<PMIAnnotationView>> views_;
    std::vector<std::shared_ptr<PMICapture>> captures_;
};

} // namespace NarMetaPmi
