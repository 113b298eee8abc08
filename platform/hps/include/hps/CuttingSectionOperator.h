#pragma once
#include <hps/CuttingSectionKey.h>
#include <hps/MaterialKit.h>
#include <hps/Operator.h>

namespace HPS
{

// Cuts the view's model by planes, of which a drag moves the first along its normal, no further than the
// model reaches. The section stands in the model's segment for as long as the operator is on a stack, and its
// planes are in the coordinates of that. A plane that misses the model is moved into its middle at the start.
class CuttingSectionOperator : public Operator
{
public:
    using Operator::Operator;
    CuttingSectionOperator(CuttingSectionOperator const&) = delete;
    CuttingSectionOperator& operator=(CuttingSectionOperator const&) = delete;
    ~CuttingSectionOperator() override;

    UTF8 GetName() const override { return "HPS_CuttingSectionOperator"; }

    void SetPlanes(std::vector<Plane> const& planes);
    // As they are now.
    std::vector<Plane> const& GetPlanes() const { return planes_; }
    // Whether anything is cut; false at first.
    void SetSectioning(bool sectioning);
    bool GetSectioning() const { return sectioning_; }
    // Whether the planes are seen themselves, as squares; true at first.
    void SetIndicatorVisibility(bool visible);
    bool GetIndicatorVisibility() const { return indicator_; }
    // What the squares look like: its diffuse face colour.
    void SetPlaneMaterial(MaterialKit const& material);
    MaterialKit GetPlaneMaterial() const;

    bool OnMouseDown(MouseState const& state) override;
    bool OnMouseMove(MouseState const& state) override;
    bool OnMouseUp(MouseState const& state) override;
    void OnFocusLost() override { last_.reset(); }
    void OnViewAttached(View const& view) override;
    void OnViewDetached(View const& view) override;

private:
    void update();
    void moveIntoModel();
    void moveFirst(WindowPoint const& from, WindowPoint const& to, WindowKey const& window);

    std::vector<Plane> planes_;
    bool sectioning_ = false, indicator_ = true;
    RGBAColor color_{0.35F, 0.45F, 0.6F, 0.15F};
    CuttingSectionKey section_; // owned; nothing while the operator is on no stack
    std::optional<WindowPoint> last_;
};

} // namespace HPS
