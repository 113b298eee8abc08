// What every picture rests on: shaded bodies, instances, modes.
#include "Stage.h"

using namespace HPS;

namespace
{

void shaded(Stage& stage)
{
    stage.light();
    stage.look({4, 3, 10});
    SegmentKey ball = stage.root().Subsegment("ball"), box = stage.root().Subsegment("box");
    ball.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.8f, 0.3f, 0.2f));
    box.GetMaterialMappingControl().SetFaceColor(RGBAColor(0.2f, 0.5f, 0.8f));
    insertBall(ball, {-0.8f, 0, 0}, 0.9f);
    insertBox(box, {0.3f, -0.7f, -0.7f}, {1.5f, 0.7f, 0.7f});
    if (stage.value("mode") == "flat") stage.view.SetRenderingMode(Rendering::Mode::Flat);
}

void instances(Stage& stage)
{
    stage.light();
    stage.look({3, 4, 10}, 6);
    SegmentKey part = stage.model.GetLibraryKey().Subsegment("part"), rows = stage.root();
    insertBox(part, {-0.4f, -0.4f, -0.4f}, {0.4f, 0.4f, 0.4f});
    for (int row = -2; row <= 2; ++row)
        for (int column = -3; column <= 3; ++column) {
            SegmentKey place = rows.Subsegment();
            place.IncludeSegment(part);
            place.GetModellingMatrixControl().Rotate(0, 12.0f * float(row), 20.0f * float(column));
            place.GetModellingMatrixControl().Translate(1.05f * float(column), 1.1f * float(row), 0);
            place.GetMaterialMappingControl().SetFaceColor(
                RGBAColor(0.5f + 0.15f * float(column), 0.5f + 0.2f * float(row), 0.5f));
        }
}

SceneTable const table{{"shaded", shaded}, {"instances", instances}};

} // namespace
