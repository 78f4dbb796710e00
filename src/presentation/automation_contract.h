// Contract tests for Automation. Each implementation instantiates them in its own *_test.cpp:
//   INSTANTIATE_TYPED_TEST_SUITE_P(Name, AutomationContract, Place);
// where `Place` has a member `automation`, an object `owner` with one property kMember, and
// `holds` and `fails` set what reading that property yields.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "presentation/automation.h"

namespace mrl {

template <typename Place>
class AutomationContract : public testing::Test {
 protected:
  AutomationResult read(AutomationValue& value) {
    return place.automation.call(place.owner, Place::kMember, DispatchKind::Get, &value, {});
  }
  /// What the property reads as when it holds `value`.
  AutomationValue valueOf(const AutomationValue& value) {
    place.holds(value);
    AutomationValue result;
    EXPECT_EQ(read(result), kAutomationOk);
    return result;
  }
  /// The same as an integer; -77 when it can't be read as one.
  int32_t integerOf(const AutomationValue& value) {
    place.holds(value);
    return readInteger();
  }
  int32_t readInteger() {
    int32_t number = -77;
    const bool read = place.automation.readInteger(place.owner, Place::kMember, number);
    EXPECT_EQ(read, number != -77);
    return number;
  }

  Place place;
};
TYPED_TEST_SUITE_P(AutomationContract);

TYPED_TEST_P(AutomationContract, ATextComesBackAsItIs) {
  EXPECT_EQ(this->valueOf(u"C:\\幻灯.pptx"), AutomationValue(u"C:\\幻灯.pptx"));
  EXPECT_EQ(this->valueOf(u""), AutomationValue(u""));
}

TYPED_TEST_P(AutomationContract, AnObjectComesBackAsOne) {
  EXPECT_TRUE(std::get<AutomationRef>(this->valueOf(this->place.owner)));
}

TYPED_TEST_P(AutomationContract, WhatIsNeitherTextNorObjectComesBackAsNothing) {
  EXPECT_EQ(this->valueOf(5), AutomationValue());
  EXPECT_EQ(this->valueOf({}), AutomationValue());
}

TYPED_TEST_P(AutomationContract, AnIntegerIsWhateverTheSystemCanTurnIntoOne) {
  EXPECT_EQ(this->integerOf(INT32_MAX), INT32_MAX);
  EXPECT_EQ(this->integerOf(-5), -5);
  EXPECT_EQ(this->integerOf(u"42"), 42);
  EXPECT_EQ(this->integerOf(u"-7"), -7);
  EXPECT_EQ(this->integerOf({}), 0);
}

TYPED_TEST_P(AutomationContract, WhatIsNoNumberLeavesTheOldOne) {
  EXPECT_EQ(this->integerOf(u"many"), -77);
  EXPECT_EQ(this->integerOf(u"7 slides"), -77);
  EXPECT_EQ(this->integerOf(u"99999999999"), -77);
  EXPECT_EQ(this->integerOf(u""), -77);
  EXPECT_EQ(this->integerOf(this->place.owner), -77);
}

TYPED_TEST_P(AutomationContract, AFailureIsHandedOnAndFillsNothing) {
  constexpr auto kCallRejected = static_cast<AutomationResult>(0x80010001);
  this->place.fails(kCallRejected);
  AutomationValue result;
  EXPECT_EQ(this->read(result), kCallRejected);
  EXPECT_EQ(result, AutomationValue());
  EXPECT_EQ(this->readInteger(), -77);
}

TYPED_TEST_P(AutomationContract, AnUnknownNameFails) {
  AutomationValue result;
  EXPECT_LT(this->place.automation.call(this->place.owner, u"NoSuchMember", DispatchKind::Get,
                                        &result, {}),
            0);
  EXPECT_EQ(result, AutomationValue());
}

REGISTER_TYPED_TEST_SUITE_P(AutomationContract, ATextComesBackAsItIs, AnObjectComesBackAsOne,
                            WhatIsNeitherTextNorObjectComesBackAsNothing,
                            AnIntegerIsWhateverTheSystemCanTurnIntoOne,
                            WhatIsNoNumberLeavesTheOldOne, AFailureIsHandedOnAndFillsNothing,
                            AnUnknownNameFails);

}  // namespace mrl
