#pragma once
#include <hps/Key.h>
#include <hps/UTF8.h>

namespace HPS
{

// Base of the handles of what stands above segments: canvases, layouts, views and models. Like a key, a
// sprocket is a small value; copying it copies the handle, and once the object is deleted every handle of it
// has type None and every operation on it does nothing and returns false, zero or an empty handle.
class Sprocket : public Object
{
public:
    Sprocket() = default;

    HPS::Type Type() const override;
    KeyIndex Index() const { return index_; }

    // As given at creation.
    UTF8 Name() const;

    // Deletes the object with its own segments. What is attached to it is let go and stays.
    void Delete();
    // Makes this handle empty; the object stays.
    void Reset() { *this = {}; }

    // Same object. All empty handles are equal.
    friend bool operator==(Sprocket const& a, Sprocket const& b)
    {
        return a.index_ == b.index_ && (a.kind_ == b.kind_ || a.index_ == KeyIndex{});
    }

protected:
    Sprocket(HPS::Type kind, KeyIndex index) : kind_(kind), index_(index) {}

private:
    HPS::Type kind_ = HPS::Type::None;
    KeyIndex index_;
};

// Base of the handles of one kind: made from any sprocket, and empty if that is of another kind.
template <HPS::Type Kind> class SprocketOf : public Sprocket
{
public:
    static constexpr HPS::Type StaticType = Kind;
    SprocketOf() = default;
    explicit SprocketOf(KeyIndex index) : Sprocket(Kind, index) {}
    explicit SprocketOf(Sprocket const& sprocket) : Sprocket(sprocket.HasType(Kind) ? sprocket : Sprocket())
    {
    }
};

} // namespace HPS
