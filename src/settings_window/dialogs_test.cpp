#include "settings_window/dialogs.h"

#include <gtest/gtest.h>

namespace mrl {
namespace {

TEST(OfferedFilesTest, ASoundIsChosenAmongTheKindsThatCanBePlayed) {
  const OfferedFiles files = offeredFiles(FileFilter::Audio);
  EXPECT_EQ(std::u16string(files.name), u"音频文件");
  EXPECT_EQ(std::u16string(files.patterns), u"*.wav;*.mp3;*.wma;*.aif;*.aiff;*.m4a");
}

TEST(OfferedFilesTest, ADeckIsChosenAmongPresentations) {
  const OfferedFiles files = offeredFiles(FileFilter::Presentation);
  EXPECT_EQ(std::u16string(files.name), u"演示文稿");
  EXPECT_EQ(std::u16string(files.patterns), u"*.ppt;*.pptx;*.pps;*.ppsx;*.dps");
}

}  // namespace
}  // namespace mrl
