#include "presentation/object_model_win.h"

#include <gtest/gtest.h>
#include <oleacc.h>

#include <atomic>
#include <functional>
#include <future>
#include <thread>

#include "base/geometry_win.h"

namespace mrl {
namespace {

constexpr wchar_t kClass[] = L"Marlune.Test.ObjectModel";

/// An object of which only the identity matters.
class TestObject : public IDispatch {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
    const bool known = IsEqualIID(wanted, IID_IUnknown) || IsEqualIID(wanted, IID_IDispatch);
    *object = known ? this : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
  ULONG STDMETHODCALLTYPE Release() override { return --references; }  // lives in the test
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }
  ULONG references = 0;
};

/// A window that returns what the test sets when asked for its native object.
class AnsweringWindow {
 public:
  explicit AnsweringWindow(std::function<LRESULT(WPARAM)> answerIn) : answer(std::move(answerIn)) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);  // fails if already registered: harmless
    window = CreateWindowExW(0, kClass, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                             windowClass.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  AnsweringWindow(const AnsweringWindow&) = delete;
  ~AnsweringWindow() { DestroyWindow(window); }
  [[nodiscard]] WindowHandle handle() const { return handleFrom(window); }

  std::atomic<int> timesAsked = 0;

 private:
  static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wide, LPARAM narrow) {
    auto* self = reinterpret_cast<AnsweringWindow*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (self && message == WM_GETOBJECT && static_cast<LONG>(narrow) == OBJID_NATIVEOM) {
      ++self->timesAsked;
      return self->answer(wide);
    }
    return DefWindowProcW(hwnd, message, wide, narrow);
  }

  std::function<LRESULT(WPARAM)> answer;
  HWND window = nullptr;
};

class ObjectModelSearchTest : public testing::Test {
 protected:
  ObjectModelSearchTest() { (void)CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ObjectModelSearchTest() override { CoUninitialize(); }

  std::function<LRESULT(WPARAM)> theObject() {
    return [this](WPARAM wide) { return LresultFromObject(IID_IDispatch, wide, &object); };
  }

  TestObject object;
  ObjectModelSearch search;
};

TEST_F(ObjectModelSearchTest, AWindowGivesTheObjectBehindIt) {
  AnsweringWindow window(theObject());
  {
    const ComRef<IDispatch> found = search.objectOf(window.handle());
    EXPECT_EQ(found.get(), &object);
    EXPECT_EQ(window.timesAsked, 1);
  }
  EXPECT_EQ(object.references, 0u) << "given up";
}

TEST_F(ObjectModelSearchTest, AWindowWithoutAnObjectOrWithNonsenseGivesNone) {
  AnsweringWindow silent([](WPARAM) { return 0; });
  AnsweringWindow mad([](WPARAM) { return 42; });
  AnsweringWindow failing([](WPARAM) { return LRESULT{E_FAIL}; });
  for (const AnsweringWindow* window : {&silent, &mad, &failing}) {
    EXPECT_FALSE(search.objectOf(window->handle()));
    EXPECT_EQ(window->timesAsked, 1);
  }
}

TEST_F(ObjectModelSearchTest, AWindowThatIsGoneGivesNone) {
  WindowHandle gone;
  {
    AnsweringWindow window(theObject());
    gone = window.handle();
  }
  EXPECT_FALSE(search.objectOf(gone));
  EXPECT_FALSE(search.objectOf({}));
}

/// Two windows on a thread of their own, which dispatches no messages until wakeUp().
class SleepyThread {
 public:
  SleepyThread() : thread([this] { run(); }) { ready.get_future().wait(); }
  ~SleepyThread() {
    wakeUp();
    PostThreadMessageW(id, WM_QUIT, 0, 0);
    thread.join();
  }
  void wakeUp() { SetEvent(awake); }
  AnsweringWindow* first = nullptr;
  AnsweringWindow* second = nullptr;

 private:
  void run() {
    AnsweringWindow one([](WPARAM) { return 0; }), two([](WPARAM) { return 0; });
    first = &one;
    second = &two;
    id = GetCurrentThreadId();
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // creates the message queue
    ready.set_value();
    WaitForSingleObject(awake, INFINITE);
    while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
    CloseHandle(awake);
  }

  const HANDLE awake = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::promise<void> ready;
  DWORD id = 0;
  std::thread thread;
};

TEST_F(ObjectModelSearchTest, AThreadThatDoesNotAnswerIsNotWaitedForAgainInTheSameSearch) {
  SleepyThread sleepy;
  EXPECT_FALSE(search.objectOf(sleepy.first->handle()));
  sleepy.wakeUp();
  EXPECT_FALSE(search.objectOf(sleepy.second->handle()));
  EXPECT_EQ(sleepy.second->timesAsked, 0);
  ObjectModelSearch next;
  EXPECT_FALSE(next.objectOf(sleepy.second->handle()));
  EXPECT_EQ(sleepy.second->timesAsked, 1) << "by now it answers";
  EXPECT_EQ(sleepy.first->timesAsked, 0) << "nothing waits for it to wake up";
}

}  // namespace
}  // namespace mrl
