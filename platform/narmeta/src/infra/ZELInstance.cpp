#include <narmeta/infra/ZELInstance.h>

#include <algorithm>

namespace NarMetaInfra
{

ZELInstance::ZELInstance(std::shared_ptr<ZELReference> reference, std::wstring pid, std::wstring name)
    : reference_(std::move(reference)),
      pid_(std::move(pid)),
      name_(std::move(name)),
      id_(NarMeta::HashId(pid_))
{
}

bool ZELInstance::GetHidden(bool& hidden) const
{
    if (hidden_) hidden = *hidden_;
    return hidden_.has_value();
}

bool ZELInstance::GetSuppressed(bool& suppressed) const
{
    if (suppressed_) suppressed = *suppressed_;
    return suppressed_.has_value();
}

bool ZELInstance::GetAlphaColor(unsigned short& alpha) const
{
    return colours_.GetAlphaColor(alpha);
}

bool ZELInstance::GetRGBColor(unsigned short& red, unsigned short& green, unsigned short& blue) const
{
    return colours_.GetRGBColor(red, green, blue);
}

void ZELInstance::GetTransform(float* matrix) const
{
    std::copy(matrix_.begin(), matrix_.end(), matrix);
}

bool ZELInstance::GetPID(std::wstring& pid) const
{
    if (pid_.empty()) return false;
    pid = pid_;
    return true;
}

void ZELInstance::SetPID(std::wstring pid)
{
    pid_ = std::move(pid);
    id_ = NarMeta::HashId(pid_);
}

} // namespace NarMetaInfra
