#pragma once
#include <hps/ApplicationWindowOptionsKit.h>
#include <hps/Canvas.h>
#include <hps/Layout.h>
#include <hps/Model.h>
#include <hps/View.h>
#include <vector>

// Makes sprockets. Names are for people; they need not differ and may be empty.
namespace HPS::Factory
{

Model CreateModel(UTF8 const& name = "");
View CreateView(UTF8 const& name = "");
Layout CreateLayout(UTF8 const& name = "");

// A canvas shown in a window of the platform; a handle of 0 makes one without a window, 1280 by 720 pixels.
Canvas CreateCanvas(WindowHandle window, UTF8 const& name = "",
                    ApplicationWindowOptionsKit const& options = {});
// A canvas without a window. Sizes as in `Canvas::SetSize`; an empty handle if they are out of range.
Canvas CreateOffScreenCanvas(int width, int height, UTF8 const& name = "",
                             ApplicationWindowOptionsKit const& options = {});

// All that live, in order of creation.
std::vector<Model> GetModels();
std::vector<View> GetViews();
std::vector<Layout> GetLayouts();
std::vector<Canvas> GetCanvases();

} // namespace HPS::Factory
