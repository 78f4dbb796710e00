// The settings file at its largest, and the search in window titles, compared with the least work
// that could do.
#include <benchmark/benchmark.h>
#include <iconv.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "base/text.h"
#include "settings/path_rules.h"
#include "settings/settings_format.h"

namespace mrl {
namespace {

Settings largestRecord() {
  Settings record;
  for (int i = 0; i < 10000; ++i) {
    record.skipList.push_back(u"C:\\Users\\speaker\\Documents\\演示文稿\\talk " + decimal(i) +
                              u".pptx");
  }
  return record;
}

/// The system's own conversion.
class Converter {
 public:
  Converter(const char* to, const char* from) : handle(iconv_open(to, from)) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() { iconv_close(handle); }

  template <class Out, class In>
  Out convert(const In& in) {
    Out out(in.size() * 3, {});
    char* from = const_cast<char*>(reinterpret_cast<const char*>(in.data()));
    char* to = reinterpret_cast<char*>(out.data());
    size_t left = in.size() * sizeof in[0];
    size_t room = out.size() * sizeof out[0];
    iconv(handle, &from, &left, &to, &room);
    out.resize(out.size() - room / sizeof out[0]);
    return out;
  }

 private:
  iconv_t handle;
};

void compose(benchmark::State& state) {
  const Settings record = largestRecord();
  for (auto _ : state) benchmark::DoNotOptimize(composeSettings(record));
}
BENCHMARK(compose)->Name("compose the largest settings file | marlune");

/// Converts each text and puts it into quotes.
void composeBarely(benchmark::State& state) {
  const Settings record = largestRecord();
  Converter utf8("UTF-8", "UTF-16LE");
  for (auto _ : state) {
    std::string all;
    for (const std::u16string& path : record.skipList) {
      all += '"';
      for (const char byte : utf8.convert<std::string>(path)) {
        if (byte == '\\') all += '\\';
        all += byte;
      }
      all += "\"\n";
    }
    benchmark::DoNotOptimize(all);
  }
}
BENCHMARK(composeBarely)->Name("compose the largest settings file | iconv");

void parse(benchmark::State& state) {
  const std::string bytes = composeSettings(largestRecord());
  for (auto _ : state) {
    Settings record;
    std::u16string error;
    benchmark::DoNotOptimize(parseSettings(bytes, record, error));
  }
}
BENCHMARK(parse)->Name("parse the largest settings file | marlune");

/// Takes each text out of its quotes and converts it.
void parseBarely(benchmark::State& state) {
  const std::string bytes = composeSettings(largestRecord());
  Converter utf16("UTF-16LE", "UTF-8");
  for (auto _ : state) {
    std::vector<std::u16string> texts;
    std::string text;
    bool isQuoted = false;
    for (size_t at = 0; at < bytes.size(); ++at) {
      if (bytes[at] == '"') {
        if (isQuoted) texts.push_back(utf16.convert<std::u16string>(text));
        isQuoted = !isQuoted;
        text.clear();
      } else if (isQuoted) {
        if (bytes[at] == '\\') ++at;
        text += bytes[at];
      }
    }
    benchmark::DoNotOptimize(texts);
  }
}
BENCHMARK(parseBarely)->Name("parse the largest settings file | iconv");

constexpr int kTitles = 10'000;

void searchTitles(benchmark::State& state) {
  std::vector<std::u16string> all;
  for (int i = 0; i < kTitles; ++i) all.push_back(u"My_Talk" + decimal(i) + u".pptx - PowerPoint");
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::ranges::count_if(all, [](const std::u16string& title) {
      return titleNamesDocument(title, u"C:\\Talks\\talk9.pptx");
    }));
  }
}
BENCHMARK(searchTitles)->Name("search 10,000 window titles | marlune");

/// The system's own search that ignores case.
void searchTitlesBarely(benchmark::State& state) {
  std::vector<std::string> all;
  for (int i = 0; i < kTitles; ++i)
    all.push_back("My_Talk" + std::to_string(i) + ".pptx - PowerPoint");
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::ranges::count_if(
        all, [](const std::string& title) { return strcasestr(title.c_str(), "talk9"); }));
  }
}
BENCHMARK(searchTitlesBarely)->Name("search 10,000 window titles | strcasestr");

}  // namespace
}  // namespace mrl
