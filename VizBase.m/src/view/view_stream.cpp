// A stored scene in place of a document.

#include "ZELView3D.h"

namespace ZelVizBase
{

void ZELView3D::TestLoadHsf(std::string const& file)
{
    if (ModelAttached) return;
    HPS::Model const model = HPS::Factory::CreateModel("Test Model");
    TheView.AttachModel(model);
    model.GetSegmentKey().GetPerformanceControl().SetDisplayLists(HPS::Performance::DisplayLists::Segment);
    setupSelectability(true);
    HPS::Stream::ImportOptionsKit options;
    options.SetSegment(model.GetSegmentKey())
        .SetAlternateRoot(model.GetLibraryKey())
        .SetPortfolio(model.GetPortfolioKey());
    HPS::IONotifier const reading = HPS::Stream::File::Import(HPS::UTF8(file.c_str()), options);
    reading.Status();
    reading.Wait();
    TheView.FitWorld();
    updateThis(HPS::Window::UpdateType::Default);
}

} // namespace ZelVizBase
