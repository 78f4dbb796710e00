// Fixture for the stand-in tests: a running stand-in, and late-bound calls written as paths.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <oaidl.h>
#include <wrl/client.h>

#include <string>
#include <variant>
#include <vector>

#include "windows/standin_client.h"

namespace mrl::standin {

// The titles of its windows with the deck a.pptx.
inline constexpr wchar_t kEditingTitle[] = L"a.pptx - PowerPoint";
inline constexpr wchar_t kShowTitle[] = L"PowerPoint Slide Show - [a.pptx]";

using Microsoft::WRL::ComPtr;
using Dispatch = ComPtr<IDispatch>;

/// Result of a late-bound call.
struct Answer {
  HRESULT result = S_OK;
  std::variant<std::monostate, int, std::wstring, Dispatch> value;
  std::wstring source, description, helpFile;  // error details
  UINT wrongArgument = 0;

  int number() const { return std::get<int>(value); }
  std::wstring text() const { return std::get<std::wstring>(value); }
  Dispatch object() const { return std::get<Dispatch>(value); }
};

/// Calls one member by name. Arguments in natural order.
Answer invoke(IDispatch* object, const wchar_t* name, WORD flags,
              const std::vector<std::variant<int, std::wstring>>& arguments = {});

/// Follows a path of members, such as "SlideShowWindows.Item(1).View.Next()". A member without
/// parentheses is read, one with parentheses is called; `Item` is called with both flags. Stops at
/// the first failure and returns it.
Answer ask(const Dispatch& from, const std::wstring& path);

/// Finds the application as other programs do, through the registry and the running object table.
HRESULT findRunning(const wchar_t* progId, Dispatch& out);

/// The visible top-level window with that class and title; null if there is none.
HWND findWindow(const wchar_t* windowClass, const std::wstring& title);

/// A file that is removed at the end of the test.
class TemporaryDeck {
 public:
  explicit TemporaryDeck(const std::wstring& name);
  TemporaryDeck(const TemporaryDeck&) = delete;
  ~TemporaryDeck() { DeleteFileW(path.c_str()); }
  std::wstring path;
};

struct Apartment {
  Apartment() { (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  Apartment(const Apartment&) = delete;
  ~Apartment() { CoUninitialize(); }
};

class StandInTest : public testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override { application.Reset(); }

  Answer ask(const std::wstring& path) { return standin::ask(application, path); }
  std::wstring command(const std::wstring& text) { return standIn.command(text); }
  /// REQUIRES: the command succeeds.
  void tell(const std::wstring& text) { ASSERT_EQ(command(text), L"ok") << "after a command"; }
  bool logHas(const std::wstring& line);

  const Apartment apartment;
  Client standIn;
  Dispatch application;
};

}  // namespace mrl::standin
