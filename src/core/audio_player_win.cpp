#include "core/audio_player_win.h"

#include <windows.h>

#include <mmsystem.h>

#include <iterator>

#include "base/wide_win.h"

namespace mrl {
namespace {

bool send(const std::wstring& command, std::u16string& error) {
  const MCIERROR code = mciSendStringW(command.c_str(), nullptr, 0, nullptr);
  if (code == 0) return true;
  wchar_t text[256] = L"";
  mciGetErrorStringW(code, text, static_cast<UINT>(std::size(text)));
  error = u16From(text);
  return false;
}

}  // namespace

bool AudioPlayerWin::open(const std::u16string& path, std::u16string& error) {
  return send(L"open \"" + wideFrom(path) + L"\" alias MarluneAudio", error);
}

bool AudioPlayerWin::play(std::u16string& error) { return send(L"play MarluneAudio", error); }

void AudioPlayerWin::stop() { mciSendStringW(L"close MarluneAudio", nullptr, 0, nullptr); }

void AudioPlayerWin::beep() { MessageBeep(MB_ICONEXCLAMATION); }

}  // namespace mrl
