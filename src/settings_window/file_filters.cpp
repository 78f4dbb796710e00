#include "settings_window/file_filters.h"

namespace mrl {
namespace {

constexpr OfferedFiles kAudio{u"音频文件", u"*.wav;*.mp3;*.wma;*.aif;*.aiff;*.m4a"};
constexpr OfferedFiles kPresentations{u"演示文稿", u"*.ppt;*.pptx;*.pps;*.ppsx;*.dps"};

}  // namespace

const OfferedFiles& offeredFiles(FileFilter filter) {
  return filter == FileFilter::Audio ? kAudio : kPresentations;
}

}  // namespace mrl
