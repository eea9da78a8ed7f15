// A window placed from stored settings is brought whole onto a screen that is there.

#include <gtest/gtest.h>

#include "shell/window_fit.h"

namespace tt {
namespace {

const QRect kLaptop(0, 0, 1600, 1000);
const QRect kRightMonitor(1600, 0, 1920, 1080);

TEST(WindowFit, AWindowWholeOnAScreenStaysWhereItIs) {
    EXPECT_EQ(FitOnScreens({100, 80, 800, 600}, {kLaptop}), QRect(100, 80, 800, 600));
    EXPECT_EQ(FitOnScreens({2000, 100, 800, 600}, {kLaptop, kRightMonitor}),
              QRect(2000, 100, 800, 600));
}

TEST(WindowFit, AWindowOnAMonitorNoLongerThereComesToTheNearestScreen) {
    // Left on the right monitor, which is unplugged: it comes to the laptop's right edge.
    EXPECT_EQ(FitOnScreens({2000, 100, 800, 600}, {kLaptop}), QRect(800, 100, 800, 600));
    // Far below a smaller screen.
    EXPECT_EQ(FitOnScreens({300, 1500, 400, 300}, {kLaptop}), QRect(300, 700, 400, 300));
}

TEST(WindowFit, ATitleBarAboveTheScreenComesDown) {
    EXPECT_EQ(FitOnScreens({0, -24, 640, 480}, {kLaptop}), QRect(0, 0, 640, 480));
    // A screen whose usable area starts below a panel.
    EXPECT_EQ(FitOnScreens({0, 0, 640, 480}, {QRect(0, 32, 1600, 968)}), QRect(0, 32, 640, 480));
}

TEST(WindowFit, AWindowLargerThanTheScreenIsShrunkToIt) {
    EXPECT_EQ(FitOnScreens({-50, -50, 2400, 1400}, {kLaptop}), QRect(0, 0, 1600, 1000));
}

TEST(WindowFit, AWindowAcrossTwoScreensGoesWholeOntoTheOneItCoversMost) {
    // Mostly on the right monitor, hanging below its bottom.
    EXPECT_EQ(FitOnScreens({1500, 700, 800, 600}, {kLaptop, kRightMonitor}),
              QRect(1600, 480, 800, 600));
}

TEST(WindowFit, NeverSmallerThanItsMinimum) {
    // The minimum wins over the area's size; the title bar stays in reach at the top left.
    EXPECT_EQ(FitOnScreens({300, 300, 900, 700}, {QRect(0, 0, 600, 400)}, QSize(700, 500)),
              QRect(0, 0, 700, 500));
}

TEST(WindowFit, NoScreensLeavesThePlacementAlone) {
    EXPECT_EQ(FitOnScreens({5000, 5000, 10, 10}, {}), QRect(5000, 5000, 10, 10));
}

}  // namespace
}  // namespace tt
