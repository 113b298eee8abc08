#pragma once

#include <QIcon>

#include <string>

namespace zelview
{

/// What an icon is drawn with: a colour of the theme, so that it can be seen on a light and a dark ground.
enum class Ink { Text, Accent, Warm, Cool, Green, Red };

/// An icon made of strokes on a field of 16 by 16. The drawing is a row of words, each a letter and its
/// numbers, with blanks between:
///   M x y move, L x y line to, Z close, C x y r circle, F as Z, and filled.
/// It is drawn when it is shown, in the colours that hold then.
QIcon drawnIcon(std::string drawing, Ink ink = Ink::Text);

} // namespace zelview
