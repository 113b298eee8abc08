#include "full_screen.h"
#include "MeshStore.h"
#include <epoxy/gl.h>

namespace HPS::render
{

bool useFullScreen(ProgramName program, Features const& features)
{
    unsigned const name = ShaderLibrary::instance().program(program, features);
    for (GLenum const state : {GL_DEPTH_TEST, GL_BLEND, GL_CULL_FACE, GL_SAMPLE_ALPHA_TO_COVERAGE})
        glDisable(state);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glUseProgram(name);
    return name != 0;
}

void setSceneState()
{
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_LEQUAL);
    glDepthMask(GL_TRUE);
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

void paintFullScreen()
{
    MeshStore::instance().bindNothing();
    glDrawArrays(GL_TRIANGLES, 0, 3);
}

} // namespace HPS::render
