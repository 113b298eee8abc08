#pragma once

#include <QImage>

#include <string>

/// How far a picture may stray from its reference.
struct Tolerance {
    int channel;     ///< a pixel differs if one of its channels does so by more than this, 0 to 255
    double fraction; ///< of all pixels that may differ, 0 to 1
};

struct Comparison {
    bool equal;
    std::string verdict; ///< in words, with the figures
    QImage difference;   ///< white where a pixel differs; null if the sizes do
};

Comparison compare(QImage const& picture, QImage const& reference, Tolerance const& tolerance);
