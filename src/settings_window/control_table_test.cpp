#include "settings_window/control_table.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "settings_window/field_table.h"

namespace mrl {
namespace {

std::vector<int> idsOf(int page) {
  std::vector<int> ids;
  for (const Control& control : allControls()) {
    if (control.page == page) ids.push_back(control.id);
  }
  return ids;
}

TEST(ControlTableTest, EachPageHasItsControlsInTheOrderOfTheTabKey) {
  EXPECT_EQ(idsOf(kNoPage), (std::vector{240}));
  EXPECT_EQ(idsOf(kEveryPage),
            (std::vector{500, 501, 502, 503, 504, 277, 278, 279, 280, 226, 201}));
  EXPECT_EQ(idsOf(0),
            (std::vector{600, 601, 241, 602, 242, 603, 203, 243, 244, 205, 245, 604, 282, 209,
                         208, 206, 605, 248, 207, 252, 253, 606, 254, 210, 224, 225, 607, 247}));
  EXPECT_EQ(idsOf(1), (std::vector{610, 651, 255, 611, 223, 612, 227, 228, 229, 652, 653,
                                   613, 256, 267, 614, 257, 268, 615, 258, 269, 616, 259,
                                   260, 617, 261, 618, 262, 619, 263, 620, 264, 265, 266}));
  EXPECT_EQ(idsOf(2),
            (std::vector{630, 400, 631, 401, 402, 403, 404, 405, 406, 407, 632, 408, 409,
                         633, 420, 634, 421, 422, 423, 424, 425, 426, 427, 635, 428, 429}));
  EXPECT_EQ(idsOf(3),
            (std::vector{640, 283, 222, 272, 110, 221, 511, 641, 642, 270, 512, 271, 643}));
  EXPECT_EQ(idsOf(4), (std::vector{650, 655, 656, 211, 212, 273, 281, 213, 246, 274, 215, 275, 216,
                                   217, 218, 219, 220}));
}

TEST(ControlTableTest, TheTabsComeFirstThenSidebarPagesAndFrame) {
  std::vector<int> pages;
  for (const Control& control : allControls()) {
    if (pages.empty() || pages.back() != control.page) pages.push_back(control.page);
  }
  EXPECT_EQ(pages, (std::vector{kNoPage, kEveryPage, 0, 1, 2, 3, 4, kEveryPage}));
}

TEST(ControlTableTest, OnlyAParagraphHasSeveralLines) {
  for (const Control& control : allControls()) {
    if (control.kind == ControlKind::Paragraph) continue;
    EXPECT_EQ(std::u16string_view(control.text).find(u'\n'), std::u16string_view::npos)
        << control.id;
  }
}

TEST(ControlTableTest, NoIdStandsTwice) {
  std::set<int> ids;
  for (const Control& control : allControls()) EXPECT_TRUE(ids.insert(control.id).second);
}

TEST(ControlTableTest, TheRadioButtonsAreAGroupOfTheirOwn) {
  bool inGroup = false;
  for (const Control& control : allControls()) {
    if (control.startsGroup) inGroup = control.id == kDownRadio;
    if (isInteractive(control.kind)) {
      EXPECT_EQ(inGroup, control.kind == ControlKind::Radio) << control.id;
    }
  }
}

enum class Look {
  Tabs,
  Section,
  Button,
  Check,
  Radio,
  Static,
  Number,
  Box,
  Address,
  Combo,
  List,
  Host,
  Preview,
  Qr
};
using enum Look;

Look lookOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::Tabs: return Tabs;
    case ControlKind::Section: return Section;
    case ControlKind::Button: return Button;
    case ControlKind::Check: return Check;
    case ControlKind::Radio: return Radio;
    case ControlKind::Title:
    case ControlKind::Caption:
    case ControlKind::Paragraph:
    case ControlKind::TimerLine:
    case ControlKind::StatusLine: return Static;
    case ControlKind::NumberBox: return Number;
    case ControlKind::TextBox: return Box;
    case ControlKind::AddressBox: return Address;
    case ControlKind::Combo: return Combo;
    case ControlKind::List: return List;
    case ControlKind::PreviewHost: return Host;
    case ControlKind::Preview: return Preview;
    case ControlKind::QrCode: break;
  }
  return Qr;
}

struct Shown {
  int id;
  Look look;
  std::u16string text;  // for a combo and the tabs their rows, separated by a bar
  std::u16string cue;
};

const Shown kShown[] = {
    {500, Section, u"计时与动作"},
    {501, Section, u"悬浮窗外观"},
    {502, Section, u"阶段提醒"},
    {503, Section, u"远程遥控"},
    {504, Section, u"PPT控制"},
    {277, Static},
    {278, Button, u"开始 / 暂停"},
    {279, Button, u"重置并停止"},
    {280, Combo, u"自动模式|手动模式"},
    {226, Static},
    {201, Button, u"关闭"},
    {240, Tabs, u"计时与动作|外观|预警|网络|PPT控制"},
    {600, Static, u"基础计时配置"},
    {601, Static, u"计时时长："},
    {241, Number, u"", u"8"},
    {602, Static, u"分"},
    {242, Number, u"", u"0"},
    {603, Static, u"秒"},
    {203, Radio, u"倒计时"},
    {243, Radio, u"正计时"},
    {244, Check, u"无文档时自动隐藏"},
    {205, Check, u"翻页后重新计时"},
    {245, Check, u"计时归零后自动隐藏"},
    {604, Static, u"计时结束后动作"},
    {282, Static},
    {209, Check, u"退出当前放映"},
    {208, Check, u"开启全屏黑屏"},
    {206, Check, u"背景闪烁提醒"},
    {605, Static, u"持续时间（秒，0 为持续）"},
    {248, Number},
    {207, Check, u"结束时播放提示音"},
    {252, Box, u"", u"选择提示音文件，留空使用系统提示音"},
    {253, Button, u"选择音频"},
    {606, Static, u"播放时长（秒，0 为完整）"},
    {254, Number},
    {210, Check, u"结束后播放指定文稿"},
    {224, Box, u"", u"选择计时结束后播放的演示文稿"},
    {225, Button, u"选择文稿"},
    {607, Static, u"关闭文稿后延迟重置（秒）"},
    {247, Number},
    {610, Static, u"实时样式预览"},
    {651, Static, u"1:1 原尺寸 · 拖动四角可调整大小"},
    {255, Combo, u"正常计时|预警亮起时|超时计时"},
    {611, Host},
    {223, Preview, u"1:1 预览"},
    {612, Static, u"尺寸（宽 × 高）"},
    {227, Number},
    {228, Number},
    {229, Button, u"恢复默认"},
    {652, Static, u"颜色与背景"},
    {653, Static, u"字体与显示"},
    {613, Static, u"数字颜色"},
    {256, Box},
    {267, Button, u"选色…"},
    {614, Static, u"背景颜色"},
    {257, Box},
    {268, Button, u"选色…"},
    {615, Static, u"警告闪烁颜色"},
    {258, Box},
    {269, Button, u"选色…"},
    {616, Static, u"背景不透明度（%）"},
    {259, Number},
    {260, Check, u"纯文字模式"},
    {617, Static, u"窗口形状"},
    {261, Combo, u"直角矩形|圆角矩形|极简椭圆"},
    {618, Static, u"字体"},
    {262, Box},
    {619, Static, u"字体粗细"},
    {263, Combo, u"细 (Light 300)|常规 (Normal 400)|粗 (Bold 700)|极粗 (Black 900)"},
    {620, Static, u"闪烁亮 / 暗间隔（毫秒）"},
    {264, Number},
    {265, Number},
    {266, Check, u"遥控器显示系统时钟"},
    {630, Static, u"第一阶段"},
    {400, Check, u"启用"},
    {631, Static, u"提前提醒（分钟 / 秒）"},
    {401, Number},
    {402, Number},
    {403, Check, u"悬浮窗闪烁"},
    {404, Check, u"悬浮窗背景颜色闪烁"},
    {405, Check, u"播放提示音"},
    {406, Box, u"", u"选择音频文件"},
    {407, Button, u"选择音频"},
    {632, Static, u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放"},
    {408, Number},
    {409, Number},
    {633, Static, u"第二阶段"},
    {420, Check, u"启用"},
    {634, Static, u"提前提醒（分钟 / 秒）"},
    {421, Number},
    {422, Number},
    {423, Check, u"悬浮窗闪烁"},
    {424, Check, u"悬浮窗背景颜色闪烁"},
    {425, Check, u"播放提示音"},
    {426, Box, u"", u"选择音频文件"},
    {427, Button, u"选择音频"},
    {635, Static, u"闪烁 / 音频时长（秒）\n0 表示持续闪烁 / 完整播放"},
    {428, Number},
    {429, Number},
    {640, Static, u"连接与服务"},
    {283, Qr, u"连接二维码"},
    {222, Address},
    {272, Button, u"复制地址"},
    {110, Button, u"打开遥控器"},
    {221, Button, u"启动遥控服务"},
    {511, Button, u"检查与修复"},
    {641, Static, u"扫码或输入电脑地址和端口即可连接。"},
    {642, Static, u"网络端口（1024–65535）"},
    {270, Number},
    {512, Button, u"应用端口"},
    {271, Check, u"启动程序时开启遥控服务"},
    {643, Static, u"应用端口会停止当前遥控服务；请重新启动并授权。"},
    {650, Static, u"演示文稿文件夹"},
    {655, Static, u"文件夹中的 PPT"},
    {656, Static, u"放映控制"},
    {211, Box, u"", u"选择包含 PPT / WPS 文件的文件夹"},
    {212, Button, u"选择文件夹"},
    {273, Button, u"刷新列表"},
    {281, Static},
    {213, List},
    {246, Check, u"排除文件时隐藏悬浮窗"},
    {274, Button, u"打开文件"},
    {215, Button, u"放映文件"},
    {275, Button, u"关闭文件"},
    {216, Button, u"从头放映"},
    {217, Button, u"当前页放映"},
    {218, Button, u"上一页"},
    {219, Button, u"下一页"},
    {220, Button, u"退出放映"},
};

std::u16string textOf(const Control& control) {
  std::u16string text = control.text;
  for (const char16_t* const row : control.rows)
    text += text.empty() ? row : std::u16string(u"|") + row;
  return text;
}

TEST(ControlTableTest, EveryControlIsOfItsKindAndSaysItsText) {
  EXPECT_EQ(allControls().size(), std::size(kShown));
  for (const Shown& shown : kShown) {
    const Control* control = findControl(shown.id);
    ASSERT_NE(control, nullptr) << shown.id;
    EXPECT_EQ(lookOf(control->kind), shown.look) << shown.id;
    EXPECT_EQ(textOf(*control), shown.text) << shown.id;
    EXPECT_EQ(control->cue ? control->cue : u"", shown.cue) << shown.id;
  }
}

TEST(ControlTableTest, AnUnknownIdIsNoControl) { EXPECT_EQ(findControl(214), nullptr); }

/// The name a screen reader uses: the explicit one, else the control's text, else the label before.
std::u16string spokenOf(const Control& control) {
  for (const SpokenName& spoken : spokenNames()) {
    if (spoken.id == control.id) return spoken.name;
  }
  if (*control.text != u'\0') return control.text;
  const Control& before = *(&control - 1);
  return before.kind == ControlKind::Caption ? before.text : u"";
}

TEST(ControlTableTest, WhateverTakesTheKeyboardIsCalledByAName) {
  for (const Control& control : allControls()) {
    if (!isInteractive(control.kind) || control.kind == ControlKind::Tabs) continue;
    EXPECT_NE(spokenOf(control), u"") << control.id;
  }
}

TEST(ControlTableTest, NoTwoBoxesOfAPageAreCalledTheSame) {
  std::set<std::pair<int, std::u16string>> names;
  for (const Control& control : allControls()) {
    if (!isEditBox(control.kind) && control.kind != ControlKind::Combo) continue;
    EXPECT_TRUE(names.emplace(control.page, spokenOf(control)).second) << control.id;
  }
}

TEST(ControlTableTest, EverySpokenNameIsOfAControlThatTakesTheKeyboard) {
  for (const SpokenName& spoken : spokenNames()) {
    const Control* control = findControl(spoken.id);
    ASSERT_NE(control, nullptr) << spoken.id;
    EXPECT_TRUE(isInteractive(control->kind)) << spoken.id;
  }
}

TEST(ControlTableTest, EveryFieldHasAControlOfItsKind) {
  for (const Field& field : allFields()) {
    if (field.kind == FieldKind::SkipList) continue;
    const Control* control = findControl(field.id);
    ASSERT_NE(control, nullptr) << field.id;
    switch (field.kind) {
      case FieldKind::Flag: EXPECT_EQ(control->kind, ControlKind::Check); break;
      case FieldKind::DownRadio: EXPECT_EQ(control->kind, ControlKind::Radio); break;
      case FieldKind::Number:
      case FieldKind::Time: EXPECT_EQ(control->kind, ControlKind::NumberBox) << field.id; break;
      case FieldKind::ShapeRow:
      case FieldKind::FontWeight: EXPECT_EQ(control->kind, ControlKind::Combo); break;
      default: EXPECT_EQ(control->kind, ControlKind::TextBox) << field.id;
    }
  }
}

TEST(ControlTableTest, EveryCheckAndBoxOfThePagesEditsAField) {
  for (const Control& control : allControls()) {
    const bool edits = control.kind == ControlKind::Check || control.kind == ControlKind::Radio ||
                       control.kind == ControlKind::NumberBox ||
                       control.kind == ControlKind::TextBox;
    if (edits) {
      EXPECT_NE(findField(queuedId(control.id)), nullptr) << control.id;
    }
  }
}

}  // namespace
}  // namespace mrl
