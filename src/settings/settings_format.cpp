#include "settings/settings_format.h"

#include <istream>
#include <locale>
#include <span>
#include <sstream>
#include <string_view>
#include <utility>

#include "base/text.h"

namespace mrl {
namespace {

constexpr std::string_view kMagic = "MarluneNative2";
constexpr std::string_view kOlderMagic = "MarluneNative1";

constexpr char16_t kBadFormat[] = u"配置格式无效，已使用默认值；原文件未覆盖。";
constexpr char16_t kBadList[] = u"配置列表不完整";
constexpr char16_t kBadExtension[] = u"配置扩展字段无效";
constexpr char16_t kBadPrompt[] = u"预警配置无效";

// The skip list stands between them; an older file ends behind it.
constexpr const Setting<Settings>* kFirstBehindList = &rowOf(kSettings, &Settings::hideNoDocument);
constexpr std::span kClockRows(std::begin(kSettings), kFirstBehindList);
constexpr std::span kExtensionRows(kFirstBehindList, std::end(kSettings));

// --- writing ---

void addValue(std::string& body, bool value) { body += value ? '1' : '0'; }
void addValue(std::string& body, uint32_t value) { body += std::to_string(value); }
void addValue(std::string& body, int32_t value) { body += std::to_string(value); }
void addValue(std::string& body, const std::u16string& value) {
  body += '"';
  for (const char byte : utf8From(value)) {
    if (byte == '"' || byte == '\\') body += '\\';
    body += byte;
  }
  body += '"';
}

template <class Record>
void addRows(std::string& body, const Record& record, const auto& rows) {
  for (const Setting<Record>& row : rows) {
    body += row.newLine ? '\n' : ' ';
    std::visit([&](auto member) { addValue(body, record.*member); }, row.member);
  }
}

// --- reading ---

/// Reads like std::quoted, but without a sentry per byte: a long list would take several times as
/// long.
void readQuoted(std::istream& in, std::string& bytes) {
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

void readValue(std::istream& in, std::u16string& value) {
  std::string bytes;
  readQuoted(in, bytes);
  value = utf16From(bytes);
}
template <typename Value>
void readValue(std::istream& in, Value& value) {
  in >> value;
}

/// Reads through int64_t: a stream would turn a negative number into a large one, which may then be
/// in range.
uint32_t readNumber(std::istream& in, const Range& range) {
  int64_t value = 0;
  in >> value;
  if (value < range.lowest || value > range.highest) in.setstate(std::ios::failbit);
  return static_cast<uint32_t>(value);
}

/// False once the stream has failed.
template <class Record>
bool readRows(std::istream& in, Record& record, const auto& rows) {
  for (const Setting<Record>& row : rows) {
    const auto* const number = std::get_if<uint32_t Record::*>(&row.member);
    if (number && !row.uncheckedInFile) {
      record.*(*number) = readNumber(in, row.range);
    } else {
      std::visit([&](auto member) { readValue(in, record.*member); }, row.member);
    }
  }
  return !in.fail();
}

bool readMagic(std::istream& in, bool& older) {
  std::string line;
  std::getline(in, line);
  if (line.ends_with('\r')) line.pop_back();
  older = line == kOlderMagic;
  return older || line == kMagic;
}

bool readSkipList(std::istream& in, uint32_t count, std::vector<std::u16string>& list) {
  for (uint32_t i = 0; i < count && in; ++i) readValue(in, list.emplace_back());
  return !in.fail();
}

}  // namespace

std::string composeSettings(const Settings& s) {
  std::string body(kMagic);
  addRows(body, s, kClockRows);
  body += '\n' + std::to_string(s.skipList.size());
  for (const std::u16string& path : s.skipList) {
    body += '\n';
    addValue(body, path);
  }
  addRows(body, s, kExtensionRows);
  addRows(body, s.prompt1, kStageSettings);
  addRows(body, s.prompt2, kStageSettings);
  body += '\n';
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
  if (!readMagic(in, older) || !readRows(in, fresh, kClockRows)) return refuse(kBadFormat);
  const uint32_t count = readNumber(in, {0, kMaxSkipped});
  if (in.fail()) return refuse(kBadFormat);
  if (!readSkipList(in, count, fresh.skipList)) return refuse(kBadList);
  if (!older) {
    if (!readRows(in, fresh, kExtensionRows)) return refuse(kBadExtension);
    if (!readRows(in, fresh.prompt1, kStageSettings) ||
        !readRows(in, fresh.prompt2, kStageSettings)) {
      return refuse(kBadPrompt);
    }
  }
  if (hasBlackConflict(fresh)) fresh.black = false;
  record = std::move(fresh);
  return true;
}

}  // namespace mrl
