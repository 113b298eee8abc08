#include "compare.h"

#include <algorithm>
#include <cstdlib>

namespace
{

int channelDistance(QRgb a, QRgb b)
{
    return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
                     std::abs(qBlue(a) - qBlue(b)), std::abs(qAlpha(a) - qAlpha(b))});
}

std::string sizeOf(QImage const& image)
{
    return std::to_string(image.width()) + "x" + std::to_string(image.height());
}

} // namespace

Comparison compare(QImage const& picture, QImage const& reference, Tolerance const& tolerance)
{
    if (picture.size() != reference.size())
        return {false, "it is " + sizeOf(picture) + ", the reference " + sizeOf(reference), {}};
    QImage const a = picture.convertToFormat(QImage::Format_ARGB32);
    QImage const b = reference.convertToFormat(QImage::Format_ARGB32);
    QImage difference(a.size(), QImage::Format_Grayscale8);
    long long differing = 0;
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        auto const* rowA = reinterpret_cast<QRgb const*>(a.constScanLine(y));
        auto const* rowB = reinterpret_cast<QRgb const*>(b.constScanLine(y));
        uchar* const marks = difference.scanLine(y);
        for (int x = 0; x < a.width(); ++x) {
            int const distance = channelDistance(rowA[x], rowB[x]);
            bool const differs = distance > tolerance.channel;
            largest = std::max(largest, distance);
            differing += differs;
            marks[x] = differs ? 255 : 0;
        }
    }
    double const fraction = static_cast<double>(differing) / std::max(1, a.width() * a.height());
    return {fraction <= tolerance.fraction,
            std::to_string(differing) + " pixels differ (" + std::to_string(fraction) + " of all, " +
                std::to_string(tolerance.fraction) + " allowed), a channel by up to " +
                std::to_string(largest),
            difference};
}
