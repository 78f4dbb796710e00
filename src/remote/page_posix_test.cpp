// Holds the rows of page.html to the table of settings: the page is compiled into the program as it
// is, so it states ranges of its own. Native only, for it reads the source.
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "remote/controls.h"

namespace mrl {
namespace {

std::string pageSource() {
  std::ifstream file(MARLUNE_PAGE, std::ios::binary);
  EXPECT_TRUE(file) << MARLUNE_PAGE;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// All matches of the groups of an expression.
std::vector<std::smatch> matchesOf(const std::string& text, const char* expression) {
  const std::regex pattern(expression);
  return {std::sregex_iterator(text.begin(), text.end(), pattern), {}};
}

/// The rows of the page's form: name, and what follows the label. A stage's row stands for both.
std::multimap<std::string, std::string> pageRows(const std::string& page) {
  const size_t first = page.find("const stageRows");
  const size_t end = page.find("/* Messages */");
  EXPECT_LT(first, end);
  const std::string lists = page.substr(first, end - first);
  std::multimap<std::string, std::string> rows;
  for (const std::smatch& row : matchesOf(lists, R"(\n *\[['`]([^'`]+)['`], '[^']*', (.*)\],)")) {
    const std::string name = row[1];
    const std::string prefix = "prompt${stage}.";
    if (!name.starts_with(prefix)) {
      rows.emplace(name, row[2]);
      continue;
    }
    for (const char* stage : {"prompt1.", "prompt2."}) {
      rows.emplace(stage + name.substr(prefix.size()), row[2]);
    }
  }
  return rows;
}

/// Whether the page's choices are numbers of the field's range.
void expectChoicesWithin(const ControlField& field, const std::string& choices) {
  const auto values = matchesOf(choices, R"(\[(\d+), ')");
  EXPECT_FALSE(values.empty()) << field.name;
  for (const std::smatch& value : values) {
    EXPECT_GE(std::stoi(value[1]), field.minimum) << field.name;
    EXPECT_LE(std::stoi(value[1]), field.maximum) << field.name;
  }
}

TEST(PageTest, EachSettingOfTheFormHasOneRowWithItsRangeAndThereIsNoOther) {
  const std::string page = pageSource();
  auto rows = pageRows(page);
  Settings settings;
  for (const ControlField& field : controlFields(settings)) {
    ASSERT_EQ(rows.count(field.name), 1u) << field.name;
    const std::string kind = rows.find(field.name)->second;
    rows.erase(field.name);
    if (std::holds_alternative<bool*>(field.target)) {
      EXPECT_EQ(kind, "'bool'") << field.name;
    } else if (kind == "'color'") {
      EXPECT_EQ(field.minimum, 0) << field.name;
      EXPECT_EQ(field.maximum, 0xFFFFFF) << field.name;
    } else if (kind.starts_with("'select', ")) {
      expectChoicesWithin(field, kind);
    } else {
      EXPECT_EQ(kind, std::to_string(field.minimum) + ", " + std::to_string(field.maximum))
          << field.name;
    }
  }
  for (const auto& [name, kind] : rows) ADD_FAILURE() << name << " is no setting of the form";
}

TEST(PageTest, TheBoxesOfMinutesAndSecondsReachTheLongestDuration) {
  const std::string page = pageSource();
  const auto boxes = matchesOf(page, R"re(id="(minutes|seconds)" min="0" max="(\d+)")re");
  ASSERT_EQ(boxes.size(), 2u);
  EXPECT_EQ(std::stoi(boxes[0][2]) * 60 + std::stoi(boxes[1][2]), kMaxDurationSeconds);
}

}  // namespace
}  // namespace mrl
