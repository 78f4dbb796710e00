// The accessible names passed to the system, recorded by a fake of its service.
#include "settings_window/spoken_names_win.h"

#include <gtest/gtest.h>

#include <string>

#include "base/wide_win.h"
#include "settings_window/control_ids.h"
#include "settings_window/control_table.h"
#include "settings_window/name_service_win.h"

namespace mrl {
namespace {

class SpokenNamesTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(service.registered);
    for (const Control& row : allControls()) {
      controls[row.id] = CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                         GetModuleHandleW(nullptr), nullptr);
    }
  }
  void TearDown() override {
    for (const auto& [id, control] : controls) DestroyWindow(control);
  }

  NameService service;
  std::map<int, HWND> controls;
};

TEST_F(SpokenNamesTest, TheSystemIsToldEachOfThem) {
  giveSpokenNames(controls);
  EXPECT_EQ(service.names.size(), spokenNames().size());
  for (const SpokenName& spoken : spokenNames()) {
    EXPECT_EQ(service.names[controls[spoken.id]], wideFrom(spoken.name));
  }
}

TEST_F(SpokenNamesTest, AllAreTakenBack) {
  giveSpokenNames(controls);
  takeSpokenNamesBack(controls);
  EXPECT_TRUE(service.names.empty());
}

TEST_F(SpokenNamesTest, AControlThatWasNeverMadeGetsNone) {
  giveSpokenNames({{kModeCombo, controls[kModeCombo]}});
  EXPECT_EQ(service.names.size(), 1u);
}

TEST_F(SpokenNamesTest, ARefusalOfOneDoesNotKeepTheOthersFromTheirs) {
  service.answer = E_FAIL;
  giveSpokenNames(controls);
  EXPECT_EQ(service.names.size(), spokenNames().size());
}

TEST_F(SpokenNamesTest, WithoutTheServiceNothingHappens) {
  CoUninitialize();
  giveSpokenNames(controls);
  takeSpokenNamesBack(controls);
  EXPECT_TRUE(service.names.empty());
  ASSERT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
}

}  // namespace
}  // namespace mrl
