#pragma once

#include <QImage>
#include <QString>

namespace zelview
{

/// Small pictures of files, in the folder that all programs of a desktop share for them.
namespace Thumbnails
{

inline constexpr int Side = 256; ///< pixels at most, in width and height

/// Keeps a picture of a file as it is now.
void store(QString const& path, QImage const& picture);

/// The picture kept of a file; null if there is none or the file has changed since.
QImage find(QString const& path);

} // namespace Thumbnails

} // namespace zelview
