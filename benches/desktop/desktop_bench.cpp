// The desktop's figures, one a line: name, value, unit, limit, held or short. The exit code is 1
// when a limit was missed.

#include <algorithm>
#include <chrono>
#include <functional>
#include <vector>

#include "benches/figures.h"
#include "desktop/frm_sys_tray.h"
#include "desktop/last_hour.h"
#include "desktop/status_picture.h"
#include "supervision/status_lights.h"

namespace tarvo {
namespace {

using Clock = std::chrono::steady_clock;

class BenchClock final : public TickClock {
 public:
  std::uint32_t Milliseconds() override { return now; }
  void Pause(std::uint32_t) override {}
  std::uint32_t now = 0;
};

/// A shell that takes everything and costs nothing: what is measured is the launcher's own share.
class BenchShell final : public NotificationArea, public Icons, public CodePage {
 public:
  void OpenWindow(const std::string&) override {}
  void CloseWindow() override {}
  bool Add(const NotificationIcon& icon) override { return Show(icon); }
  bool Modify(const NotificationIcon& icon) override { return Show(icon); }
  bool Show(const NotificationIcon& icon) {
    shown = icon.icon;
    return true;
  }
  void Delete() override { shown = 0; }
  std::optional<std::size_t> ShowMenu(const std::vector<MenuEntry>&) override { return {}; }
  int NotificationSize() override { return size; }
  IconHandle Create(const Picture& picture) override {
    drawn += picture.pixels[picture.pixels.size() / 2];
    ++alive;
    return ++made;
  }
  void Destroy(IconHandle icon) override { alive -= icon == 0 ? 0 : 1; }
  bool HasOneByteCharacters() override { return true; }
  bool IsLeadByte(unsigned char) override { return false; }
  std::string Lowered(std::string text) override { return text; }
  std::string Raised(std::string text) override { return text; }
  std::string ToUtf8(std::string_view text) override { return std::string(text); }

  int size = 16;
  int alive = 0;
  IconHandle made = 0;
  IconHandle shown = 0;
  std::uint32_t drawn = 0;  ///< Of every picture a little, so that none is left out.
};

Figures figures;

/// Milliseconds that one of `runs` runs took, the best of five rounds.
double MillisecondsOf(int runs, const std::function<void()>& work) {
  double best = 1e9;
  for (int round = 0; round < 5; ++round) {
    const auto begin = Clock::now();
    for (int i = 0; i < runs; ++i) work();
    const std::chrono::duration<double, std::milli> took = Clock::now() - begin;
    best = std::min(best, took.count() / runs);
  }
  return best;
}

/// A picture that is needed for the first time, drawn within the tick that asks for it.
void MeasurePictures() {
  for (int size : {16, 48, 96}) {
    std::uint32_t sum = 0;
    const double cost =
        MillisecondsOf(50, [&] { sum += DrawStatusPicture(StatesOfCode(0), size).pixels[0]; });
    const std::string name = "status picture of " + std::to_string(size) + " pixels, drawn";
    figures.AtMost(name.c_str(), cost + (sum == 1 ? 1 : 0), "ms", 20);
  }
}

void MeasureChanges() {
  BenchShell shell;
  StatusIcons icons(shell);
  int code = 0;
  for (int i = 0; i < 2; ++i) icons.For(StatesOfCode(i));
  const int before = shell.alive;
  const double cost = MillisecondsOf(10000, [&] { icons.For(StatesOfCode(code++ % 26)); });
  figures.AtMost("picture change of 16 pixels", cost, "ms", 20);
  figures.AtMost("icons more after 50000 picture changes", shell.alive - before, "icons", 0);
}

/// Lights, tray picture and strips of one tick, as a share of the 2 seconds between two of them.
/// The states change all the time, which is the worst that can be.
void MeasureTick() {
  BenchShell shell;
  BenchClock clock;
  EventDispatch dispatch;
  ComponentTable components;
  PerComponent<Light> lights;
  PerComponent<StatusStrip> strips;
  StatusLights statusLights(lights, components);
  LastHour lastHour(strips, components, clock);
  StatusIcons icons(shell);
  frmSysTray tray(shell, shell, dispatch);
  tray.Load("[Northwind] - Tarvo Launcher", icons.For(StatesOfCode(8)));
  int state = 0;
  const double cost = MillisecondsOf(100000, [&] {
    clock.now += 2000;
    for (Component& component : components) {
      component.AlarmState = static_cast<AlarmState>(++state % 3);
    }
    statusLights.Combine();
    tray.SetIconHandle(icons.For(StatesOfCode(statusLights.StatusCode())));
    statusLights.Show();
    lastHour.Note();
  });
  figures.AtMost("status tick and strips, of one core", cost / 2000 * 100, "%", 0.05);
}

}  // namespace
}  // namespace tarvo

int main() {
  tarvo::MeasurePictures();
  tarvo::MeasureChanges();
  tarvo::MeasureTick();
  return tarvo::figures.ExitCode();
}
