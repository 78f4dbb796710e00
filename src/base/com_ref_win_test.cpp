// Ownership of COM objects.
#include "base/com_ref_win.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

struct CountedObject {
  int references = 1;
  int value = 5;
  void Release() { --references; }
};

TEST(ComRefTest, ItTakesOverOneReferenceAndReleasesItAtItsEnd) {
  CountedObject object;
  {
    const ComRef<CountedObject> ref(&object);
    EXPECT_EQ(object.references, 1);
    EXPECT_EQ(ref->value, 5);
    EXPECT_EQ(&*ref, &object);
  }
  EXPECT_EQ(object.references, 0);
}

TEST(ComRefTest, AMoveKeepsTheCount) {
  CountedObject object;
  ComRef<CountedObject> first(&object);
  const ComRef<CountedObject> second(std::move(first));
  EXPECT_FALSE(first);
  EXPECT_TRUE(second);
  EXPECT_EQ(object.references, 1);
}

TEST(ComRefTest, PutReleasesWhatWasHeld) {
  CountedObject object;
  ComRef<CountedObject> ref(&object);
  *ref.put() = nullptr;
  EXPECT_EQ(object.references, 0);
  EXPECT_FALSE(ref);
}

}  // namespace
}  // namespace mrl
