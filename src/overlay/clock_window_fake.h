// A ClockWindow for tests: a rectangle that records its calls and whether a paint is due.
#pragma once

#include <cassert>
#include <functional>
#include <string>
#include <vector>

#include "overlay/clock_window.h"

namespace mrl {

class ClockWindowFake : public ClockWindow {
 public:
  bool create(Point topLeft, Size size) override {
    assert(!exists);
    calls.emplace_back("create");
    if (createFails) return false;
    exists = true;
    place = {topLeft.x, topLeft.y, topLeft.x + size.width, topLeft.y + size.height};
    return true;
  }
  void destroy() override {
    calls.emplace_back("destroy");
    exists = false;
    visible = false;
  }
  WindowHandle handle() const override { return exists ? WindowHandle{1} : WindowHandle{}; }

  bool isVisible() const override { return visible; }
  /// Shows the picture it was hidden with, without a repaint, as a layered window does.
  void show() override {
    calls.emplace_back("show");
    visible = exists;
  }
  void hide() override {
    calls.emplace_back("hide");
    visible = false;
    paintDue = false;
  }
  void raise() override { calls.emplace_back("raise"); }

  Rect rect() const override { return exists ? place : Rect{}; }
  int dpi() const override { return exists ? windowDpi : kUnitsPerInch; }
  Rect nearestWorkArea() const override { return exists ? workArea : Rect{}; }
  void moveTo(Point topLeft) override {
    calls.emplace_back("moveTo");
    if (!exists) return;
    place = {topLeft.x, topLeft.y, topLeft.x + place.width(), topLeft.y + place.height()};
  }
  void resize(Size size) override {
    calls.emplace_back("resize");
    if (!exists) return;
    place.right = place.left + size.width;
    place.bottom = place.top + size.height;
  }
  void setRect(const Rect& rect) override {
    calls.emplace_back("setRect");
    if (exists) place = rect;
  }

  /// Ignored while hidden, as by the real window.
  void invalidate() override {
    calls.emplace_back("invalidate");
    requestPaint();
  }
  void paintNow() override {
    calls.emplace_back("paintNow");
    paintIfDue();
  }
  void dropRegion() override {
    calls.emplace_back("dropRegion");
    requestPaint();
  }
  void setText(const std::u16string& shown) override {
    calls.emplace_back("setText");
    if (exists) text = shown;
  }

  void beginMove() override { calls.emplace_back("beginMove"); }
  void captureMouse() override {
    calls.emplace_back("captureMouse");
    captured = exists;
  }
  void releaseMouse() override {
    calls.emplace_back("releaseMouse");
    captured = false;
  }
  Point cursor() const override { return cursorAt; }

  /// What the message loop does when it is idle.
  void paintIfDue() {
    if (!paintDue) return;
    paintDue = false;
    if (onPaint) onPaint();
  }

  bool createFails = false;
  int windowDpi = kUnitsPerInch;
  Rect workArea{0, 0, 1920, 1040};
  Point cursorAt;
  std::function<void()> onPaint;

  bool exists = false;
  bool visible = false;
  bool captured = false;
  Rect place;
  std::u16string text;
  bool paintDue = false;
  int invalidations = 0;           // without the ignored ones
  std::vector<std::string> calls;  // by name, in order

 private:
  void requestPaint() {
    if (!visible) return;
    ++invalidations;
    paintDue = true;
  }
};

}  // namespace mrl
