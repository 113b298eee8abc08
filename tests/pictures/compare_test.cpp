#include "compare.h"

#include <gtest/gtest.h>

TEST(Compare, countsPixelsBeyondTheChannelTolerance)
{
    QImage reference(10, 10, QImage::Format_RGB32);
    reference.fill(qRgb(100, 100, 100));
    QImage picture = reference;
    picture.setPixel(3, 4, qRgb(100, 103, 100));

    EXPECT_TRUE(compare(picture, picture, {0, 0}).equal);
    EXPECT_FALSE(compare(picture, reference, {2, 0}).equal);
    EXPECT_TRUE(compare(picture, reference, {3, 0}).equal);
    EXPECT_TRUE(compare(picture, reference, {0, 0.01}).equal);
    EXPECT_FALSE(compare(picture, reference, {0, 0.009}).equal);
    EXPECT_EQ(compare(picture, reference, {0, 0}).difference.pixelColor(3, 4), QColor(Qt::white));
    EXPECT_FALSE(compare(picture, reference.copy(0, 0, 9, 10), {255, 1}).equal);
}
