// Counts what is closed, and when.
#include "base/unique_handle.h"

#include <gtest/gtest.h>

#include <vector>

namespace mrl {
namespace {

/// Handles are numbers, -1 is invalid; the test owns the list of closed handles.
struct CountedTraits {
  static int none() { return -1; }
  static void close(int handle) { closed.push_back(handle); }
  static inline std::vector<int> closed;
};
using Handle = UniqueHandle<CountedTraits>;

class UniqueHandleTest : public testing::Test {
 protected:
  void SetUp() override { CountedTraits::closed.clear(); }
  const std::vector<int>& closed() const { return CountedTraits::closed; }
};

TEST_F(UniqueHandleTest, AnEmptyHandleIsFalseAndClosesNothing) {
  {
    const Handle handle;
    EXPECT_FALSE(handle);
    EXPECT_EQ(handle.get(), -1);
  }
  EXPECT_TRUE(closed().empty());
}

TEST_F(UniqueHandleTest, TheEndOfAHandleClosesItsValueOnce) {
  {
    const Handle handle(7);
    EXPECT_TRUE(handle);
    EXPECT_EQ(handle.get(), 7);
    EXPECT_TRUE(closed().empty());
  }
  EXPECT_EQ(closed(), std::vector<int>{7});
}

TEST_F(UniqueHandleTest, ZeroIsAValueLikeAnyOther) {
  { const Handle handle(0); }
  EXPECT_EQ(closed(), std::vector<int>{0});
}

TEST_F(UniqueHandleTest, AMoveHandsOverTheOneDutyToClose) {
  {
    Handle first(7);
    const Handle second(std::move(first));
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), 7);
  }
  EXPECT_EQ(closed(), std::vector<int>{7});
}

TEST_F(UniqueHandleTest, AssignmentClosesTheOldValueAtOnce) {
  Handle target(1);
  target = Handle(2);
  EXPECT_EQ(closed(), std::vector<int>{1});
  EXPECT_EQ(target.get(), 2);
}

TEST_F(UniqueHandleTest, AssignmentToItselfKeepsTheValue) {
  Handle handle(7);
  Handle& same = handle;
  handle = std::move(same);
  EXPECT_EQ(handle.get(), 7);
  EXPECT_TRUE(closed().empty());
}

TEST_F(UniqueHandleTest, ResetClosesAndIsThenEmpty) {
  Handle handle(7);
  handle.reset();
  handle.reset();
  EXPECT_FALSE(handle);
  EXPECT_EQ(closed(), std::vector<int>{7});
}

TEST_F(UniqueHandleTest, AReleasedValueIsNotClosed) {
  {
    Handle handle(7);
    EXPECT_EQ(handle.release(), 7);
    EXPECT_FALSE(handle);
  }
  EXPECT_TRUE(closed().empty());
}

TEST_F(UniqueHandleTest, PutClosesBeforeItGivesOutTheAddress) {
  {
    Handle handle(1);
    int* address = handle.put();
    EXPECT_EQ(closed(), std::vector<int>{1});
    *address = 2;
    EXPECT_EQ(handle.get(), 2);
  }
  EXPECT_EQ(closed(), (std::vector<int>{1, 2}));
}

}  // namespace
}  // namespace mrl
