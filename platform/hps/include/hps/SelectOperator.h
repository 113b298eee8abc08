#pragma once
#include <hps/Operator.h>
#include <hps/SelectionOptionsKit.h>
#include <hps/SelectionResults.h>

namespace HPS
{

// Selects what lies under the mouse when its button goes down, or under the first finger. What was found
// stays until the next selection; a place with nothing empties it.
class SelectOperator : public Operator
{
public:
    using Operator::Operator;

    UTF8 GetName() const override { return "HPS_SelectOperator"; }
    // True if a selection was made, whatever it found.
    bool OnMouseDown(MouseState const& state) override;
    bool OnTouchDown(TouchState const& state) override;

    SelectionOptionsKit GetSelectionOptions() const { return options_; }
    void SetSelectionOptions(SelectionOptionsKit const& options) { options_ = options; }
    SelectionResults GetActiveSelection() const { return selection_; }
    void SetActiveSelection(SelectionResults const& selection) { selection_ = selection; }
    void ClearSelection() { selection_.Reset(); }

protected:
    // Replaces the active selection.
    void select(WindowKey const& window, WindowPoint const& place);

private:
    SelectionOptionsKit options_;
    SelectionResults selection_;
};

} // namespace HPS
