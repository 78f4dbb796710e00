// What a paint does when the drawing library fails. The library is the real one; each test
// temporarily replaces one entry of an interface's function table.
#include <gtest/gtest.h>

#include <cstring>

#include "overlay/clock_geometry.h"
#include "overlay/clock_painter_win.h"
#include "overlay/test_window_class_win.h"

namespace mrl {
namespace {

/// While it lives, every object of the same class as `object` fails at `method` with `code`.
template <class Object, class Method>
class Refusal {
 public:
  Refusal(Object& object, Method method, HRESULT code) {
    answer = code;
    calls = 0;
    // GCC keeps a virtual member function as its offset in the table, plus one.
    intptr_t offset = 0;
    std::memcpy(&offset, &method, sizeof offset);
    slot = *reinterpret_cast<char**>(&object) + offset - 1;
    original = exchange(reinterpret_cast<void*>(&refuse));
  }
  Refusal(const Refusal&) = delete;
  Refusal& operator=(const Refusal&) = delete;
  ~Refusal() { exchange(original); }

  static inline int calls = 0;

 private:
  static HRESULT STDMETHODCALLTYPE refuse() {
    ++calls;
    return answer;
  }
  void* exchange(void* entry) const {
    DWORD protection = 0;
    VirtualProtect(slot, sizeof entry, PAGE_READWRITE, &protection);
    void* old = nullptr;
    std::memcpy(&old, slot, sizeof old);
    std::memcpy(slot, &entry, sizeof entry);
    VirtualProtect(slot, sizeof entry, protection, &protection);
    return old;
  }

  static inline HRESULT answer = E_FAIL;
  char* slot = nullptr;
  void* original = nullptr;
};

// The name is overloaded; this picks the virtual function.
HRESULT(STDMETHODCALLTYPE ID2D1RenderTarget::*const kCreateBrush)
(const D2D1_COLOR_F*, const D2D1_BRUSH_PROPERTIES*,
 ID2D1SolidColorBrush**) = &ID2D1RenderTarget::CreateSolidColorBrush;

constexpr Size kSize = kDefaultClockUnits;
constexpr uint32_t kPaintedGround = 0xCC0066CC;
constexpr HRESULT kTargetIsLost = static_cast<HRESULT>(0x8899000C);

class ClockPainterFailureTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(painter.createFactories());
    settings.shape = 0;
    ASSERT_EQ(D2D1CreateFactory(D2D1_FACTORY_TYPE_SINGLE_THREADED, __uuidof(ID2D1Factory), nullptr,
                                reinterpret_cast<void**>(factory.put())),
              S_OK);
    ASSERT_EQ(DWriteCreateFactory(DWRITE_FACTORY_TYPE_SHARED, __uuidof(IDWriteFactory),
                                  reinterpret_cast<IUnknown**>(fonts.put())),
              S_OK);
    D2D1_RENDER_TARGET_PROPERTIES properties{};
    properties.pixelFormat = {DXGI_FORMAT_B8G8R8A8_UNORM, D2D1_ALPHA_MODE_PREMULTIPLIED};
    ASSERT_EQ(factory->CreateDCRenderTarget(&properties, target.put()), S_OK);
  }
  [[nodiscard]] bool paint() { return painter.renderBitmap(picture, kSize, 96); }
  uint32_t ground() const { return painter.bitmap().pixel(91, 2); }
  bool hasDigits() const {
    for (int y = 0; y < kSize.height; ++y) {
      for (int x = 0; x < kSize.width; ++x) {
        if (painter.bitmap().pixel(x, y) == 0xFFFAFCFF) return true;
      }
    }
    return false;
  }
  void expectShapeWithoutDigits() {
    EXPECT_EQ(ground(), kPaintedGround);
    EXPECT_FALSE(hasDigits());
  }

  Settings settings;
  ClockPicture picture{.settings = settings, .text = u"15:00"};
  ClockPainterWin painter;
  // Of the same classes as the painter's own, so they share its function tables.
  ComRef<ID2D1Factory> factory;
  ComRef<IDWriteFactory> fonts;
  ComRef<ID2D1DCRenderTarget> target;
};

TEST_F(ClockPainterFailureTest, NothingRefusedGivesShapeAndDigits) {
  ASSERT_TRUE(paint());
  EXPECT_EQ(ground(), kPaintedGround);
  EXPECT_TRUE(hasDigits());
}

TEST_F(ClockPainterFailureTest, WithoutATargetThereIsNoPictureAndTheNextPaintTriesAgain) {
  {
    const Refusal refusal(*factory, &ID2D1Factory::CreateDCRenderTarget, E_FAIL);
    EXPECT_FALSE(paint());
    EXPECT_EQ(refusal.calls, 1);
  }
  ASSERT_TRUE(paint());
  EXPECT_TRUE(hasDigits());
}

TEST_F(ClockPainterFailureTest, ATargetThatCantBeBoundGivesNoPicture) {
  {
    const Refusal refusal(*target, &ID2D1DCRenderTarget::BindDC, E_FAIL);
    EXPECT_FALSE(paint());
    EXPECT_EQ(refusal.calls, 1);
  }
  EXPECT_TRUE(paint());
}

TEST_F(ClockPainterFailureTest, TheTargetIsBoundAnewForEachPaint) {
  ASSERT_TRUE(paint());
  const Refusal refusal(*target, &ID2D1DCRenderTarget::BindDC, E_FAIL);
  EXPECT_FALSE(paint());
  EXPECT_FALSE(paint());
  EXPECT_EQ(refusal.calls, 2);
}

TEST_F(ClockPainterFailureTest, WithoutABrushThePictureIsClear) {
  const Refusal refusal(*target, kCreateBrush, E_FAIL);
  EXPECT_TRUE(paint());
  EXPECT_EQ(refusal.calls, 1);
  EXPECT_EQ(ground(), 0U);
  EXPECT_FALSE(hasDigits());
}

TEST_F(ClockPainterFailureTest, ALostTargetGivesNoPictureAndIsMadeAnew) {
  ASSERT_TRUE(paint());
  {
    const Refusal lost(*target, &ID2D1RenderTarget::EndDraw, kTargetIsLost);
    EXPECT_FALSE(paint());
  }
  {
    const Refusal making(*factory, &ID2D1Factory::CreateDCRenderTarget, E_FAIL);
    EXPECT_FALSE(paint());
    EXPECT_EQ(making.calls, 1);
  }
  ASSERT_TRUE(paint());
  EXPECT_TRUE(hasDigits());
}

TEST_F(ClockPainterFailureTest, AnyOtherFailureAtTheEndKeepsTheTarget) {
  ASSERT_TRUE(paint());
  {
    const Refusal end(*target, &ID2D1RenderTarget::EndDraw, E_FAIL);
    EXPECT_TRUE(paint());
  }
  const Refusal making(*factory, &ID2D1Factory::CreateDCRenderTarget, E_FAIL);
  (void)paint();
  EXPECT_EQ(making.calls, 0);
}

TEST_F(ClockPainterFailureTest, WithoutATextFormatTheShapeStays) {
  const Refusal refusal(*fonts, &IDWriteFactory::CreateTextFormat, E_FAIL);
  ASSERT_TRUE(paint());
  EXPECT_EQ(refusal.calls, 1);
  expectShapeWithoutDigits();
}

TEST_F(ClockPainterFailureTest, WithoutATextLayoutTheShapeStays) {
  const Refusal refusal(*fonts, &IDWriteFactory::CreateTextLayout, E_FAIL);
  ASSERT_TRUE(paint());
  EXPECT_EQ(refusal.calls, 1);
  expectShapeWithoutDigits();
}

TEST_F(ClockPainterFailureTest, ATextThatCantBeMeasuredIsLeftOut) {
  ComRef<IDWriteTextFormat> format;
  ComRef<IDWriteTextLayout> layout;
  ASSERT_EQ(
      fonts->CreateTextFormat(L"Arial", nullptr, DWRITE_FONT_WEIGHT_BOLD, DWRITE_FONT_STYLE_NORMAL,
                              DWRITE_FONT_STRETCH_NORMAL, 20, L"zh-CN", format.put()),
      S_OK);
  ASSERT_EQ(fonts->CreateTextLayout(L"15", 2, format.get(), 183, 82, layout.put()), S_OK);
  // The overload that takes the plain struct.
  HRESULT(STDMETHODCALLTYPE IDWriteTextLayout::*const measure)
  (DWRITE_TEXT_METRICS*) = &IDWriteTextLayout::GetMetrics;
  const Refusal refusal(*layout, measure, E_FAIL);
  ASSERT_TRUE(paint());
  EXPECT_EQ(refusal.calls, 1);
  expectShapeWithoutDigits();
}

TEST_F(ClockPainterFailureTest, APreviewWithoutATargetIsAnsweredAllTheSame) {
  TestWindowClass windowClass(L"Marlune.Native.Preview");
  windowClass.onPaint = [this](HWND window) { painter.paintPreview(window, picture); };
  const HWND window =
      CreateWindowExW(WS_EX_TOOLWINDOW, L"Marlune.Native.Preview", L"", WS_POPUP, 200, 200, 183, 82,
                      nullptr, nullptr, GetModuleHandleW(nullptr), &windowClass);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  {
    const Refusal refusal(*factory, &ID2D1Factory::CreateDCRenderTarget, E_FAIL);
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
    EXPECT_GE(refusal.calls, 1);
    EXPECT_FALSE(GetUpdateRect(window, nullptr, FALSE));
  }
  DestroyWindow(window);
}

}  // namespace
}  // namespace mrl
