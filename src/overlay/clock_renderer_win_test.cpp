// How a target and the text are set up for drawing.
#include "overlay/clock_renderer_win.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "base/com_ref_win.h"
#include "overlay/clock_bitmap_win.h"

namespace mrl {
namespace {

/// While it lives, records the language passed to CreateTextFormat. The library is the real one,
/// except for that entry of its function table.
class LanguageNote {
 public:
  explicit LanguageNote(IDWriteFactory& fonts) {
    noted.clear();
    const auto method = &IDWriteFactory::CreateTextFormat;
    // GCC keeps a virtual member function as its offset in the table, plus one.
    intptr_t offset = 0;
    std::memcpy(&offset, &method, sizeof offset);
    slot = reinterpret_cast<Function*>(*reinterpret_cast<char**>(&fonts) + offset - 1);
    system = *slot;
    set(note);
  }
  LanguageNote(const LanguageNote&) = delete;
  LanguageNote& operator=(const LanguageNote&) = delete;
  ~LanguageNote() { set(system); }

  static inline std::wstring noted;

 private:
  using Function = HRESULT(STDMETHODCALLTYPE*)(IDWriteFactory*, const wchar_t*,
                                               IDWriteFontCollection*, DWRITE_FONT_WEIGHT,
                                               DWRITE_FONT_STYLE, DWRITE_FONT_STRETCH, float,
                                               const wchar_t*, IDWriteTextFormat**);

  static HRESULT STDMETHODCALLTYPE note(IDWriteFactory* fonts, const wchar_t* family,
                                        IDWriteFontCollection* collection,
                                        DWRITE_FONT_WEIGHT weight, DWRITE_FONT_STYLE style,
                                        DWRITE_FONT_STRETCH stretch, float size,
                                        const wchar_t* language, IDWriteTextFormat** format) {
    noted = language;
    return system(fonts, family, collection, weight, style, stretch, size, language, format);
  }
  void set(Function function) const {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof function, PAGE_READWRITE, &protection);
    *slot = function;
    VirtualProtect(slot, sizeof function, protection, &protection);
  }

  static inline Function system = nullptr;
  Function* slot = nullptr;
};

class ClockRendererTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                                reinterpret_cast<void**>(factory.put())),
              S_OK);
    ASSERT_EQ(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                  reinterpret_cast<IUnknown**>(fonts.put())),
              S_OK);
    D2D1_RENDER_TARGET_PROPERTIES properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
    ASSERT_EQ(factory->CreateDCRenderTarget(&properties, target.put()), S_OK);
    ASSERT_TRUE(bitmap.ensure({275, 123}));
    const RECT box{0, 0, 275, 123};
    ASSERT_EQ(target->BindDC(bitmap.dc(), &box), S_OK);
  }

  Settings settings;
  ClockPicture picture{.settings = settings, .text = u"15:00"};
  ComRef<ID2D1Factory> factory;
  ComRef<IDWriteFactory> fonts;
  ComRef<IDWriteTextLayout> lastText;
  ClockBitmap bitmap;
  ComRef<ID2D1DCRenderTarget> target;
};

TEST_F(ClockRendererTest, TheDigitsHaveNoColouredEdges) {
  target->SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_CLEARTYPE);
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144, lastText));
  EXPECT_EQ(target->GetTextAntialiasMode(), D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
}

TEST_F(ClockRendererTest, TheTargetTakesTheDpiOfThePaint) {
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144, lastText));
  float horizontal = 0;
  float vertical = 0;
  target->GetDpi(&horizontal, &vertical);
  EXPECT_EQ(horizontal, 144);
  EXPECT_EQ(vertical, 144);
}

TEST_F(ClockRendererTest, ItsCharactersAreChineseOnesWhateverTheSystemSpeaks) {
  // The glyphs of shared characters depend on the language.
  const LanguageNote language(*fonts);
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144, lastText));
  EXPECT_EQ(LanguageNote::noted, L"zh-CN");
}

TEST_F(ClockRendererTest, UnitsAreScaledByTheDpi) {
  picture.handles = true;
  settings.shape = 0;
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144, lastText));
  EXPECT_EQ(bitmap.pixel(11, 11), 0xFFFFFFFFU);  // a handle is 8 units wide
  EXPECT_EQ(bitmap.pixel(12, 12), 0xCC0066CCU);
}

}  // namespace
}  // namespace mrl
