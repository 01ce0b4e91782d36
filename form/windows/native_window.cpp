#include "form/windows/native_window.h"

#include "form/windows/main_frame.h"

namespace tarvo {

class NativeWindow::Impl {
 public:
  Impl(Form& form, TimerQueue& timers, EventDispatch& dispatch)
      : window(form.frame.window), frame(form, timers, dispatch) {}

  const MainWindow& window;
  MainFrame frame;
};

NativeWindow::NativeWindow(Form& form, TimerQueue& timers, EventDispatch& dispatch)
    : impl_(std::make_unique<Impl>(form, timers, dispatch)) {}

NativeWindow::~NativeWindow() = default;

std::intptr_t NativeWindow::Handle() const {
  return reinterpret_cast<std::intptr_t>(impl_->frame.Window());
}

int NativeWindow::Run() {
  MSG message{};
  while (!impl_->window.Ended() && GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (impl_->frame.Take(message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  // A quit request that is left over would close the next box that is shown.
  PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  return impl_->window.ExitCode();
}

}  // namespace tarvo
