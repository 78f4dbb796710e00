// Late-bound calls and window searches for the tests of the stand-in.
#include "windows/standin_fixture.h"

#include <oleauto.h>

#include <algorithm>

namespace mrl::standin {
namespace {

std::wstring takeText(BSTR text) {
  std::wstring taken(text ? text : L"");
  SysFreeString(text);
  return taken;
}

/// Moves the VARIANT's value into the answer.
void takeValue(VARIANT& from, Answer& to) {
  if (from.vt == VT_I4) to.value.emplace<int>(from.lVal);
  if (from.vt == VT_BSTR) to.value.emplace<std::wstring>(from.bstrVal, SysStringLen(from.bstrVal));
  if (from.vt == VT_DISPATCH) to.value.emplace<Dispatch>(from.pdispVal);
  VariantClear(&from);
}

VARIANT variantFrom(const std::variant<int, std::wstring>& value) {
  VARIANT variant;
  VariantInit(&variant);
  if (const int* number = std::get_if<int>(&value)) {
    variant.vt = VT_I4;
    variant.lVal = *number;
  } else {
    variant.vt = VT_BSTR;
    variant.bstrVal = SysAllocString(std::get<std::wstring>(value).c_str());
  }
  return variant;
}

}  // namespace

Answer invoke(IDispatch* object, const wchar_t* name, WORD flags,
              const std::vector<std::variant<int, std::wstring>>& arguments) {
  Answer answer;
  DISPID id = DISPID_UNKNOWN;
  auto* named = const_cast<wchar_t*>(name);
  answer.result = object->GetIDsOfNames(IID_NULL, &named, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(answer.result)) return answer;

  std::vector<VARIANT> reversed;
  for (const auto& argument : arguments) reversed.insert(reversed.begin(), variantFrom(argument));
  DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  VARIANT value;
  VariantInit(&value);
  EXCEPINFO info{};
  answer.result = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, &value,
                                 &info, &answer.wrongArgument);
  for (VARIANT& argument : reversed) VariantClear(&argument);
  answer.source = takeText(info.bstrSource);
  answer.description = takeText(info.bstrDescription);
  answer.helpFile = takeText(info.bstrHelpFile);
  takeValue(value, answer);
  return answer;
}

Answer ask(const Dispatch& from, const std::wstring& path) {
  const size_t dot = path.find(L'.');
  const std::wstring step = path.substr(0, dot);
  const size_t open = step.find(L'(');
  const std::wstring name = step.substr(0, open);
  std::vector<std::variant<int, std::wstring>> arguments;
  if (open != std::wstring::npos && step[open + 1] != L')')
    arguments.emplace_back(_wtoi(step.c_str() + open + 1));
  const WORD called = name == L"Item" ? DISPATCH_METHOD | DISPATCH_PROPERTYGET : DISPATCH_METHOD;
  const WORD flags = open == std::wstring::npos ? DISPATCH_PROPERTYGET : called;

  const Answer answer = invoke(from.Get(), name.c_str(), flags, arguments);
  if (FAILED(answer.result) || dot == std::wstring::npos) return answer;
  return ask(answer.object(), path.substr(dot + 1));
}

HRESULT findRunning(const wchar_t* progId, Dispatch& out) {
  CLSID id;
  const HRESULT known = CLSIDFromProgID(progId, &id);
  if (FAILED(known)) return known;
  ComPtr<IUnknown> running;
  const HRESULT found = GetActiveObject(id, nullptr, running.GetAddressOf());
  return FAILED(found) ? found : running.As(&out);
}

HWND findWindow(const wchar_t* windowClass, const std::wstring& title) {
  const HWND found = FindWindowW(windowClass, title.c_str());
  return found && IsWindowVisible(found) ? found : nullptr;
}

TemporaryDeck::TemporaryDeck(const std::wstring& name) {
  wchar_t folder[MAX_PATH];
  GetTempPathW(MAX_PATH, folder);
  path = folder + name;
  CloseHandle(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
}

void StandInTest::SetUp() {
  ASSERT_TRUE(standIn.start(L"powerpnt.exe"));
  ASSERT_EQ(findRunning(L"PowerPoint.Application", application), S_OK);
}

bool StandInTest::logHas(const std::wstring& line) {
  return (L"\n" + command(L"log")).find(L"\n" + line + L"\n") != std::wstring::npos;
}

}  // namespace mrl::standin
