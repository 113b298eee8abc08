#pragma once

#include <QStringList>

#include <mora/mouse_styles.h>

#include <utility>

namespace zelview
{

/// "Shift+middle drag".
QString gestureText(MoraCore::MouseGesture const& gesture);

/// What a gesture does, and the gesture: those that move the camera in a style.
std::vector<std::pair<QString, QString>> cameraGestures(MoraCore::MouseStyle const& style);
/// Those that are alike in all styles.
std::vector<std::pair<QString, QString>> commonGestures();

/// The gestures of a style, a line for each.
QStringList mouseTexts(MoraCore::MouseStyle const& style);

} // namespace zelview
