// Values returned by calls: texts, objects, numbers.
#include <gtest/gtest.h>
#include <windows.h>

#include "presentation/automation_access.h"
#include "presentation/automation_contract.h"
#include "presentation/automation_place_win.inc"
#include "presentation/window_system_win.h"
#include "settings/files_fake.h"

namespace mrl {
namespace {

class AutomationValuesWinTest : public AutomationWinTest {
 protected:
  /// An optional value that was left out.
  static void putError(VARIANT& variant) {
    variant.vt = VT_ERROR;
    variant.scode = DISP_E_PARAMNOTFOUND;
  }
  /// The value read from a property filled by `fill`.
  AutomationValue valueOf(std::function<void(VARIANT&)> fill) {
    const AutomationRef application = connect();
    answer(L"Member", std::move(fill));
    AutomationValue value;
    EXPECT_EQ(automation.call(application, u"Member", DispatchKind::Get, &value, {}),
              kAutomationOk);
    retire();
    return value;
  }
  /// The same as an integer; -77 if it can't be read as one.
  int32_t integerOf(std::function<void(VARIANT&)> fill) {
    const AutomationRef application = connect();
    answer(L"Member", std::move(fill));
    int32_t value = -77;
    const bool read = automation.readInteger(application, u"Member", value);
    EXPECT_EQ(read, value != -77);
    retire();
    return value;
  }
};

/// A running application with one property, which each test sets.
struct AutomationContractPlaceWin : AutomationPlaceWin {
  static constexpr char16_t kMember[] = u"Member";
  const AutomationRef owner = connect();

  void holds(const AutomationValue& value) {
    const bool isObject = std::holds_alternative<AutomationRef>(value);
    answer(L"Member", [this, isObject, value = isObject ? 0 : value](VARIANT& result) {
      if (isObject) {
        object.AddRef();
        result.vt = VT_DISPATCH, result.pdispVal = &object;
      } else if (const auto* number = std::get_if<int32_t>(&value)) {
        result.vt = VT_I4, result.lVal = *number;
      } else if (const auto* text = std::get_if<std::u16string>(&value)) {
        putText(result, wideFrom(*text).c_str());
      }
    });
  }
  void fails(AutomationResult outcome) {
    object.members[L"Member"] = [outcome](VARIANT*, EXCEPINFO*) { return outcome; };
  }
};
INSTANTIATE_TYPED_TEST_SUITE_P(Win, AutomationContract, AutomationContractPlaceWin);

// --- results ---

TEST_F(AutomationValuesWinTest, ATextResultIsAText) {
  EXPECT_EQ(valueOf([](VARIANT& result) { putText(result, L"C:\\幻灯.pptx"); }),
            AutomationValue(u"C:\\幻灯.pptx"));
}

TEST_F(AutomationValuesWinTest, ATextWithAZeroInItIsTakenWhole) {
  EXPECT_EQ(valueOf([](VARIANT& result) {
              result.vt = VT_BSTR;
              result.bstrVal = SysAllocStringLen(L"a\0b", 3);
            }),
            AutomationValue(std::u16string(u"a\0b", 3)));
}

TEST_F(AutomationValuesWinTest, ANullTextIsAnEmptyText) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_BSTR, result.bstrVal = nullptr; }),
            AutomationValue(u""));
}

TEST_F(AutomationValuesWinTest, ANullObjectIsNothing) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_DISPATCH, result.pdispVal = nullptr; }),
            AutomationValue());
}

TEST_F(AutomationValuesWinTest, WhatIsNeitherTextNorObjectIsNothing) {
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_I4, result.lVal = 5; }),
            AutomationValue());
  EXPECT_EQ(valueOf([](VARIANT& result) { result.vt = VT_NULL; }), AutomationValue());
  EXPECT_EQ(valueOf([this](VARIANT& result) {
              object.AddRef();
              result.vt = VT_UNKNOWN, result.punkVal = &object;
            }),
            AutomationValue());
  EXPECT_EQ(valueOf([](VARIANT& result) { putError(result); }), AutomationValue());
}

TEST_F(AutomationValuesWinTest, AnObjectResultCanBeCalledAndIsGivenUp) {
  TestDispatch slide;
  slide.members[L"SlideIndex"] = [](VARIANT* result, EXCEPINFO*) {
    result->vt = VT_I4, result->lVal = 12;
    return S_OK;
  };
  {
    const AutomationRef application = connect();
    answer(L"Slide", [&](VARIANT& result) {
      slide.AddRef();
      result.vt = VT_DISPATCH, result.pdispVal = &slide;
    });
    AutomationValue value;
    EXPECT_EQ(automation.call(application, u"Slide", DispatchKind::Get, &value, {}), 0);
    int32_t number = 0;
    EXPECT_TRUE(automation.readInteger(std::get<AutomationRef>(value), u"SlideIndex", number));
    EXPECT_EQ(number, 12);
    EXPECT_EQ(slide.references, 1u);
  }
  EXPECT_EQ(slide.references, 0u);
}

// --- integers ---

TEST_F(AutomationValuesWinTest, AnIntegerIsReadByPropertyGet) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I4, result.lVal = -5; }), -5);
  EXPECT_EQ(object.calls.at(0).flags, DISPATCH_PROPERTYGET);
  EXPECT_TRUE(object.calls.at(0).arguments.empty());
}

TEST_F(AutomationValuesWinTest, OtherKindsOfNumbersAreConverted) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I2, result.iVal = 300; }), 300);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_UI1, result.bVal = 200; }), 200);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I8, result.llVal = 70000; }), 70000);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_R8, result.dblVal = 6.9; }), 7);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_BOOL, result.boolVal = VARIANT_TRUE; }),
            -1);
}

TEST_F(AutomationValuesWinTest, ATextOfDigitsIsConverted) {
  EXPECT_EQ(integerOf([](VARIANT& result) { putText(result, L"42"); }), 42);
}

TEST_F(AutomationValuesWinTest, NothingAtAllIsZero) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_EMPTY; }), 0);
}

TEST_F(AutomationValuesWinTest, WhatIsNoNumberCanNotBeReadAsOne) {
  EXPECT_EQ(integerOf([](VARIANT& result) { putText(result, L"many"); }), -77);
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_NULL; }), -77);
  EXPECT_EQ(integerOf([](VARIANT& result) { putError(result); }), -77);
}

TEST_F(AutomationValuesWinTest, ANumberBeyond32BitsCanNotBeRead) {
  EXPECT_EQ(integerOf([](VARIANT& result) { result.vt = VT_I8, result.llVal = 0x100000000; }), -77);
}

TEST_F(AutomationValuesWinTest, AHandleWithItsTopBitSetComesThroughNegativeAndIsNoWindow) {
  const AutomationRef show = connect();
  answer(L"HWND",
         [](VARIANT& result) { result.vt = VT_I4, result.lVal = static_cast<LONG>(0x80000004); });
  WindowSystemWin windows;
  FilesFake files;
  const PresentationAccess access{automation, windows, files};
  EXPECT_EQ(getInt(access, show, u"HWND"), -2147483644);
  EXPECT_FALSE(showWindowHandle(access, show, u""));
}

}  // namespace
}  // namespace mrl
