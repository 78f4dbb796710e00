// How a target is set up before anything is drawn on it.
#include "overlay/clock_renderer_win.h"

#include <gtest/gtest.h>

#include "core/com_ref_win.h"
#include "overlay/clock_bitmap_win.h"

namespace mrl {
namespace {

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
  ClockBitmap bitmap;
  ComRef<ID2D1DCRenderTarget> target;
};

TEST_F(ClockRendererTest, TheDigitsHaveNoColouredEdges) {
  target->SetTextAntialiasMode(D2D1_TEXT_ANTIALIAS_MODE_CLEARTYPE);
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144));
  EXPECT_EQ(target->GetTextAntialiasMode(), D2D1_TEXT_ANTIALIAS_MODE_GRAYSCALE);
}

TEST_F(ClockRendererTest, TheTargetTakesTheDpiOfThePaint) {
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144));
  float horizontal = 0;
  float vertical = 0;
  target->GetDpi(&horizontal, &vertical);
  EXPECT_EQ(horizontal, 144);
  EXPECT_EQ(vertical, 144);
}

TEST_F(ClockRendererTest, UnitsAreScaledByTheDpi) {
  picture.handles = true;
  settings.shape = 0;
  ASSERT_FALSE(renderClock(*target, *fonts, picture, bitmap.size(), 144));
  EXPECT_EQ(bitmap.pixel(11, 11), 0xFFFFFFFFU);  // a handle of 8 units
  EXPECT_EQ(bitmap.pixel(12, 12), 0xCC0066CCU);
}

}  // namespace
}  // namespace mrl
