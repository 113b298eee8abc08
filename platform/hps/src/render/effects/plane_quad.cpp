#include "plane_quad.h"
#include "MeshStore.h"
#include <epoxy/gl.h>

namespace HPS::render
{

void paintInPlane(std::array<Vec3, 4> const& corners, Viewing const& view)
{
    float places[4][4]{};
    for (std::size_t i = 0; i < 4; ++i) {
        Vec3 const p = view.toView(corners[i]);
        places[i][0] = float(p.x);
        places[i][1] = float(p.y);
        places[i][2] = float(p.z);
    }
    glUniform4fv(0, 4, places[0]);
    MeshStore::instance().bindNothing();
    glEnable(GL_DEPTH_TEST);
    glDepthMask(GL_FALSE);
    glEnable(GL_DEPTH_CLAMP);
    // A floor in the plane itself does not hide it.
    glEnable(GL_POLYGON_OFFSET_FILL);
    glPolygonOffset(-1, -4);
    glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    glDisable(GL_POLYGON_OFFSET_FILL);
    glDisable(GL_DEPTH_CLAMP);
    glDepthMask(GL_TRUE);
}

} // namespace HPS::render
