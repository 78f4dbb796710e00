#include "settings/settings_format.h"

#include <concepts>
#include <istream>
#include <locale>
#include <sstream>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace mrl {
namespace {

constexpr std::string_view kMagic = "MarluneNative2";
constexpr std::string_view kOlderMagic = "MarluneNative1";

template <typename Record>
struct FieldRange {
  uint32_t Record::*field;
  uint32_t low;
  uint32_t high;
};

constexpr FieldRange<Settings> kClockRanges[] = {
    {&Settings::duration, 0, 604800},
    {&Settings::windowWidth, 90, 1600},
    {&Settings::windowHeight, 40, 1000},
};

// soundSeconds has no row: any value is accepted.
constexpr FieldRange<Settings> kExtensionRanges[] = {
    {&Settings::resetDelay, 0, 3600},
    {&Settings::blinkSeconds, 0, 3600},
    {&Settings::blinkOn, 50, 10000},
    {&Settings::blinkOff, 50, 10000},
    {&Settings::foreground, 0, 0xFFFFFF},
    {&Settings::background, 0, 0xFFFFFF},
    {&Settings::alert, 0, 0xFFFFFF},
    {&Settings::opacity, 10, 100},
    {&Settings::shape, 0, 2},
    {&Settings::fontWeight, 100, 999},
    {&Settings::remotePort, 1024, 65535},
};

constexpr FieldRange<PromptStage> kPromptRanges[] = {
    {&PromptStage::advance, 0, 604800},
    {&PromptStage::blinkSeconds, 0, 3600},
    {&PromptStage::soundSeconds, 0, 3600},
};

template <typename Record, size_t kCount>
bool inRanges(const Record& record, const FieldRange<Record> (&ranges)[kCount]) {
  for (const auto& [field, low, high] : ranges) {
    if (record.*field < low || record.*field > high) return false;
  }
  return true;
}

// --- writing ---

std::string fieldText(bool value) { return value ? "1" : "0"; }
std::string fieldText(uint32_t value) { return std::to_string(value); }
std::string fieldText(int32_t value) { return std::to_string(value); }
std::string fieldText(size_t value) { return std::to_string(value); }
std::string fieldText(const std::u16string& value) {
  std::string text = "\"";
  for (const char byte : utf8From(value)) {
    if (byte == '"' || byte == '\\') text += '\\';
    text += byte;
  }
  return text += '"';
}

template <typename First, typename... Rest>
void addLine(std::string& body, const First& first, const Rest&... rest) {
  body += fieldText(first);
  ((body += ' ', body += fieldText(rest)), ...);
  body += '\n';
}

void addPrompt(std::string& body, const PromptStage& stage) {
  addLine(body, stage.enabled, stage.blinkWindow, stage.blinkBackground, stage.sound, stage.advance,
          stage.blinkSeconds, stage.soundSeconds, stage.soundFile);
}

// --- reading ---

/// Reads like std::quoted, but without a sentry per byte: a long list would take several times as
/// long.
void takeQuoted(std::istream& in, std::string& bytes) {
  if ((in >> std::ws).peek() != '"') {
    in >> bytes;
    return;
  }
  std::streambuf& buffer = *in.rdbuf();
  buffer.sbumpc();
  for (int byte = buffer.sbumpc(); byte != '"'; byte = buffer.sbumpc()) {
    if (byte == '\\') byte = buffer.sbumpc();
    if (byte == std::char_traits<char>::eof()) {
      in.setstate(std::ios::failbit | std::ios::eofbit);
      return;
    }
    bytes += static_cast<char>(byte);
  }
}

void take(std::istream& in, std::u16string& field) {
  std::string bytes;
  takeQuoted(in, bytes);
  field = utf16From(bytes);
}
void take(std::istream& in, bool& field) { in >> field; }
void take(std::istream& in, int32_t& field) { in >> field; }
/// Reads through int64_t: a stream would turn a negative number into a large one, which may then be
/// in range.
template <std::unsigned_integral Number>
void take(std::istream& in, Number& field) {
  int64_t value = 0;
  in >> value;
  if (!std::in_range<Number>(value)) in.setstate(std::ios::failbit);
  field = static_cast<Number>(value);
}
/// The one number whose range is not checked.
struct Unchecked {
  uint32_t& field;
};
void take(std::istream& in, const Unchecked& number) { in >> number.field; }

/// Reads the fields in order; false once the stream has failed.
template <typename... Fields>
bool takeAll(std::istream& in, Fields&&... fields) {
  (take(in, fields), ...);
  return !in.fail();
}

bool takeMagic(std::istream& in, bool& older) {
  std::string line;
  std::getline(in, line);
  if (line.ends_with('\r')) line.pop_back();
  older = line == kOlderMagic;
  return older || line == kMagic;
}

bool takeClock(std::istream& in, Settings& s, uint64_t& count) {
  return takeAll(in, s.duration, s.down, s.autoMode, s.perSlide, s.windowX, s.windowY,
                 s.windowWidth, s.windowHeight, s.blink, s.sound, s.black, s.exitShow, s.switchPpt,
                 s.pptFolder, s.switchDeck, count) &&
         count <= kMaxSkipped && inRanges(s, kClockRanges);
}

bool takeSkipList(std::istream& in, uint64_t count, std::vector<std::u16string>& list) {
  for (uint64_t i = 0; i < count; ++i) {
    if (!takeAll(in, list.emplace_back())) return false;
  }
  return true;
}

bool takeExtension(std::istream& in, Settings& s) {
  return takeAll(in, s.hideNoDocument, s.hideZero, s.hideExcluded, s.transparent, s.machineTime,
                 s.resetDelay, s.blinkSeconds, s.blinkOn, s.blinkOff, s.foreground, s.background,
                 s.alert, s.opacity, s.shape, s.fontWeight, s.fontName, s.soundFile,
                 Unchecked{s.soundSeconds}, s.remotePort, s.remoteAutoStart) &&
         inRanges(s, kExtensionRanges);
}

bool takePrompt(std::istream& in, PromptStage& stage) {
  return takeAll(in, stage.enabled, stage.blinkWindow, stage.blinkBackground, stage.sound,
                 stage.advance, stage.blinkSeconds, stage.soundSeconds, stage.soundFile) &&
         inRanges(stage, kPromptRanges);
}

}  // namespace

std::string composeSettings(const Settings& s) {
  std::string body(kMagic);
  body += '\n';
  addLine(body, s.duration, s.down, s.autoMode, s.perSlide);
  addLine(body, s.windowX, s.windowY, s.windowWidth, s.windowHeight);
  addLine(body, s.blink, s.sound, s.black, s.exitShow, s.switchPpt);
  addLine(body, s.pptFolder);
  addLine(body, s.switchDeck);
  addLine(body, s.skipList.size());
  for (const std::u16string& path : s.skipList) addLine(body, path);
  addLine(body, s.hideNoDocument, s.hideZero, s.hideExcluded, s.transparent, s.machineTime);
  addLine(body, s.resetDelay, s.blinkSeconds, s.blinkOn, s.blinkOff);
  addLine(body, s.foreground, s.background, s.alert, s.opacity, s.shape, s.fontWeight);
  addLine(body, s.fontName);
  addLine(body, s.soundFile);
  addLine(body, s.soundSeconds, s.remotePort, s.remoteAutoStart);
  addPrompt(body, s.prompt1);
  addPrompt(body, s.prompt2);
  return body;
}

bool parseSettings(const std::string& bytes, Settings& record, std::u16string& error) {
  std::istringstream in(bytes);
  in.imbue(std::locale::classic());
  const auto refuse = [&error](const char16_t* text) {
    error = text;
    return false;
  };
  Settings fresh;
  bool older = false;
  uint64_t count = 0;
  if (!takeMagic(in, older) || !takeClock(in, fresh, count)) {
    return refuse(u"配置格式无效，已使用默认值；原文件未覆盖。");
  }
  if (!takeSkipList(in, count, fresh.skipList)) return refuse(u"配置列表不完整");
  if (!older) {
    if (!takeExtension(in, fresh)) return refuse(u"配置扩展字段无效");
    if (!takePrompt(in, fresh.prompt1) || !takePrompt(in, fresh.prompt2)) {
      return refuse(u"预警配置无效");
    }
  }
  if (hasBlackConflict(fresh)) fresh.black = false;
  record = std::move(fresh);
  return true;
}

}  // namespace mrl
