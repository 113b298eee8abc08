#pragma once

#include <narmeta/Colour.h>
#include <narmeta/Id.h>

#include <array>
#include <memory>
#include <string>

namespace NarMetaInfra
{

class ZELReference;

/// 16 elements for row vectors: point * matrix, translation in 12 to 14.
using Matrix = std::array<float, 16>;
inline constexpr Matrix IdentityMatrix{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

/// A reference put somewhere, with what belongs to this one placing only. Its PID is unique in the model; an
/// instance inside a shared assembly stands for that place in every use of the assembly.
class ZELInstance
{
public:
    /// @p pid: printable ASCII without '/' and '\\' (it becomes a segment name). The id is its hash.
    ZELInstance(std::shared_ptr<ZELReference> reference, std::wstring pid, std::wstring name = {});
    virtual ~ZELInstance() = default;

    virtual bool GetHidden(bool& hidden) const;
    virtual bool GetSuppressed(bool& suppressed) const;
    virtual bool GetAlphaColor(unsigned short& alpha) const;
    virtual bool GetRGBColor(unsigned short& red, unsigned short& green, unsigned short& blue) const;
    /// Fills 16 floats.
    virtual void GetTransform(float* matrix) const;
    virtual bool GetPID(std::wstring& pid) const;

    std::shared_ptr<ZELReference> const& GetReference() const { return reference_; }
    std::wstring const& GetInstanceName() const { return name_; }
    NarMeta::Id GetHashedID() const { return id_; }
    Matrix const& GetMatrix() const { return matrix_; }
    NarMeta::Coloured const& GetColours() const { return colours_; }

    /// For a reader that gives a use of an assembly one of its own; the structure has to hear of it
    /// (ZELProductStructure::NoteNewPids).
    void SetReference(std::shared_ptr<ZELReference> reference) { reference_ = std::move(reference); }
    void SetTransform(Matrix const& matrix) { matrix_ = matrix; }
    void SetRGBColor(unsigned short red, unsigned short green, unsigned short blue)
    {
        colours_.SetRGBColor(red, green, blue);
    }
    void SetColour(std::optional<NarMeta::Colour> colour) { colours_.SetColour(colour); }
    void SetAlphaColor(std::optional<unsigned short> alpha) { colours_.SetAlphaColor(alpha); }
    void SetHidden(bool hidden) { hidden_ = hidden; }
    void SetSuppressed(bool suppressed) { suppressed_ = suppressed; }
    void SetInstanceName(std::wstring name) { name_ = std::move(name); }
    /// The id follows the PID.
    void SetPID(std::wstring pid);

private:
    std::shared_ptr<ZELReference> reference_;
    std::wstring pid_;
    std::wstring name_;
    NarMeta::Id id_;
    Matrix matrix_ = IdentityMatrix;
    NarMeta::Coloured colours_;
    std::optional<bool> hidden_;
    std::optional<bool> suppressed_;
};

} // namespace NarMetaInfra
