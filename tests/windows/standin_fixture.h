// What the tests of the stand-in share: a running stand-in, and late-bound calls written as paths.
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

using Microsoft::WRL::ComPtr;
using Dispatch = ComPtr<IDispatch>;

/// What a late-bound call gave back.
struct Answer {
  HRESULT result = S_OK;
  std::variant<std::monostate, int, std::wstring, Dispatch> value;
  std::wstring source, description, helpFile;  // of the explanation of a failure
  UINT wrongArgument = 0;

  int number() const { return std::get<int>(value); }
  std::wstring text() const { return std::get<std::wstring>(value); }
  Dispatch object() const { return std::get<Dispatch>(value); }
};

/// One call by name. Arguments in natural order.
Answer invoke(IDispatch* object, const wchar_t* name, WORD flags,
              const std::vector<std::variant<int, std::wstring>>& arguments = {});

/// Follows a path of members, such as "SlideShowWindows.Item(1).View.Next()". Without parentheses a
/// member is read; with them it is called, and `Item` with both kinds of call at once. A failure on
/// the way is the answer.
Answer ask(const Dispatch& from, const std::wstring& path);

/// Through the registry and the table of running objects, as another program would find it.
HRESULT findRunning(const wchar_t* progId, Dispatch& out);

/// The visible top-level window of that class whose title is `title`; null when there is none.
HWND findWindow(const wchar_t* windowClass, const std::wstring& title);

/// A file that exists until the test ends.
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
