// Parses the command line.
#include "standin/options.h"

#include <windows.h>

#include <shellapi.h>

#include <memory>

#include "standin/model.h"

namespace mrl::standin {
namespace {

struct Program {
  const wchar_t* progId;
  const wchar_t* editingClass;
  const wchar_t* showClass;
  bool innerWindows;
};
constexpr Program kPowerPoint{L"PowerPoint.Application", L"PPTFrameClass", L"screenClass", true};
constexpr Program kWps{L"KWPP.Application", L"WPPFrameClass", L"WPPViewClass", false};

const Program& playedProgram() {
  return _wcsicmp(fileName(imagePath()).c_str(), L"wpp.exe") == 0 ? kWps : kPowerPoint;
}

}  // namespace

Options readOptions(const std::vector<std::wstring>& arguments) {
  const Program& program = playedProgram();
  Options options;
  options.editingClass = program.editingClass;
  options.showClass = program.showClass;
  options.innerWindows = program.innerWindows;
  for (const std::wstring& argument : arguments) {
    const size_t equals = argument.find(L'=');
    const std::wstring name = argument.substr(0, equals);
    const std::wstring value = equals == std::wstring::npos ? L"" : argument.substr(equals + 1);
    if (name == L"--progid") options.progIds.push_back(value);
    if (name == L"--deck") options.deck = value;
    if (name == L"--log") options.log = value;
    if (name == L"--slides") options.slides = _wtoi(value.c_str());
    if (name == L"--monitor") options.monitor = _wtoi(value.c_str());
    if (name == L"--show") options.show = true;
    if (name == L"--unlisted") options.unlisted = true;
    if (name == L"--editing-class") options.editingClass = value;
    if (name == L"--show-class") options.showClass = value;
    if (name == L"--show-title") options.showTitle = value;
    if (name == L"--register") options.registerOnly = true;
    if (name == L"--unregister") options.unregisterOnly = true;
  }
  if (options.progIds.empty()) options.progIds = {program.progId};
  return options;
}

std::vector<std::wstring> splitArguments(const std::wstring& text) {
  int count = 0;
  // The first argument follows the rules for program names, so a dummy takes its place.
  const std::unique_ptr<wchar_t*, decltype(&LocalFree)> words(
      CommandLineToArgvW((L"x " + text).c_str(), &count), &LocalFree);
  return {words.get() + 1, words.get() + count};
}

std::wstring imagePath() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

}  // namespace mrl::standin
