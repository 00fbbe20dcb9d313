#include "app/drawing/snapped_items.h"
#include "tests/app/bridge/print_qt.h"

#include <QImage>
#include <QQuickWindow>
#include <QTest>

#include <gtest/gtest.h>

#include <cmath>
#include <map>

namespace tarvolt {
namespace {

/// A black box with a red border, on white, in an item that can be anywhere.
class SnappedItemTest : public ::testing::Test {
protected:
    SnappedItemTest() {
        window_.setColor(Qt::white);
        window_.resize(80, 60);
        ancestor_.setParentItem(window_.contentItem());
        box.setParentItem(&ancestor_);
        box.setSize(QSizeF(21, 13));
        box.setProperty("color", QColor(Qt::black));
        box.setProperty("borderColor", QColor(Qt::red));
        window_.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window_));
    }

    void borderIs(double width) { box.setProperty("borderWidth", width); }
    int pixels(double length) const { return static_cast<int>(std::lround(length * window_.devicePixelRatio())); }

    /// A picture of the window with the ancestor this far from whole pixels.
    QImage picture(double x, double y) {
        ancestor_.setPosition(QPointF(10 + x, 10 + y));
        return window_.grabWindow().convertToFormat(QImage::Format_RGB32);
    }

    /// The last column that has a pixel of this colour, or -1.
    static int rightmost(const QImage& image, const QColor& colour) {
        int last = -1;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = last + 1; column < image.width(); ++column) {
                last = image.pixel(column, row) == colour.rgb() ? column : last;
            }
        }
        return last;
    }

    /// The number of pixels of each colour with the ancestor this far from whole pixels.
    std::map<QRgb, int> coloursAt(double x, double y) {
        const QImage image = picture(x, y);
        std::map<QRgb, int> colours;
        for (int row = 0; row < image.height(); ++row) {
            for (int column = 0; column < image.width(); ++column) {
                ++colours[image.pixel(column, row)];
            }
        }
        colours.erase(QColor(Qt::white).rgb());
        return colours;
    }

    BoxItem box;

private:
    QQuickWindow window_;
    QQuickItem ancestor_;
};

TEST_F(SnappedItemTest, HasSharpEdgesWhereverItsAncestorsPutIt) {
    const std::map<QRgb, int> sharp{{QColor(Qt::black).rgb(), pixels(21) * pixels(13)}};
    for (int tenth = 0; tenth < 10; ++tenth) {
        EXPECT_EQ(coloursAt(0.1 * tenth, 0), sharp) << tenth;
        EXPECT_EQ(coloursAt(0, 0.1 * tenth), sharp) << tenth;
    }
}

TEST_F(SnappedItemTest, HasABorderOfWholePixels) {
    borderIs(1);
    const int inside = (pixels(21) - 2) * (pixels(13) - 2);
    const std::map<QRgb, int> sharp{{QColor(Qt::black).rgb(), inside},
                                    {QColor(Qt::red).rgb(), pixels(21) * pixels(13) - inside}};
    for (int tenth = 0; tenth < 10; ++tenth) {
        EXPECT_EQ(coloursAt(0.1 * tenth, 0.7), sharp) << tenth;
    }
}

TEST_F(SnappedItemTest, EndsOnTheSamePixelAsOthers) {
    BoxItem other;
    other.setParentItem(box.parentItem());
    other.setProperty("color", QColor(Qt::red));
    other.setY(20);
    for (int tenth = 0; tenth < 10; ++tenth) {
        box.setSize(QSizeF(50, 13));
        other.setX(13 - 0.1 * tenth);
        other.setSize(QSizeF(50 - other.x(), 13));
        const QImage image = picture(0.1 * tenth, 0);
        EXPECT_GE(rightmost(image, Qt::black), 0) << tenth;
        EXPECT_EQ(rightmost(image, Qt::black), rightmost(image, Qt::red)) << tenth;
    }
}

} // namespace
} // namespace tarvolt
