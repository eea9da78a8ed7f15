// The general error path of every event handler: the box that names the error.

#include <gtest/gtest.h>

#include "model/error_path.h"
#include "support/fakes.h"

namespace tt {
namespace {

using test::FakeWorld;

TEST(ErrorPath, UnexpectedErrorNamesNumberTextAndSource) {
    FakeWorld w;
    ShowUnexpectedError(AppError(kErrSubscript));
    EXPECT_EQ(w.messages.beeps, 3);
    EXPECT_EQ(w.messages.Texts(),
              (std::vector<std::string>{
                  "The system has detected an unexpected error.\r\nError # 9:  Subscript out "
                  "of range, Source:  TamberlinTally"}));
}

}  // namespace
}  // namespace tt
