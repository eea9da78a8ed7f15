// A child window's kept place: its defaults, values that are not numbers, and what is written.

#include <gtest/gtest.h>

#include "model/window_placement.h"
#include "support/fakes.h"

namespace tt::test {
namespace {

TEST(WindowPlacement, MissingOrDamagedValuesFallBackAndOnlyKeptSizesAreWritten) {
    FakeWorld world;
    Placement p = RestoreWindowPlacement("Pay");
    EXPECT_EQ(p.left, 1000);
    EXPECT_EQ(p.top, 1000);
    EXPECT_EQ(p.width, 0);  // none kept: the window keeps the size of its design
    EXPECT_EQ(p.height, 0);

    world.settings.values = {
        {"PayLeft", "12x"}, {"PayTop", ""}, {"PayWidth", "-40"}, {"PayHeight", "6000.5"}};
    p = RestoreWindowPlacement("Pay");
    EXPECT_EQ(p.left, 1000);
    EXPECT_EQ(p.top, 1000);
    EXPECT_EQ(p.width, 0);
    EXPECT_EQ(p.height, 6000.5);

    SaveWindowPlacement("Tran", {15, 30, 4500, 3000}, false);
    EXPECT_EQ(world.settings.writes, (std::vector<std::string>{"TranLeft", "TranTop"}));
    EXPECT_EQ(world.settings.values["TranLeft"], "15");
    SaveWindowPlacement("Odds", {15, 30, 4500, 3000}, true);
    EXPECT_EQ(world.settings.values["OddsHeight"], "3000");
}

}  // namespace
}  // namespace tt::test
