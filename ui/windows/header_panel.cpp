#include "ui/windows/header_panel.h"

#include "ui/windows/component_names.h"
#include "ui/windows/label_widgets.h"
#include "ui/windows/light_widget.h"

namespace tarvo {
namespace {

/// The longest read-out of a machine with terabytes, so that the label never moves.
constexpr char kWidestMemory[] = "100% (9,999,999.99 MB)";
constexpr char kUsualFailure[] = "Login: 2026-12-31 23:59:59";

enum Column { kLight0, kName0, kLight1, kName1, kLight2, kName2, kRoom, kMemoryCaption, kMemory };
enum Row { kTop, kLights };

}  // namespace

HeaderPanel::HeaderPanel(Stage& stage, HWND parent) : Panel(stage, parent, Ground::Window) {
  Frame& frame = stage.form.frame;
  SetColumns({{12}, {8}, {24}, {8}, {24}, {8}, {24, true}, {8}, {8}});
  SetRows({{8}, {4}});
  SetMargin({12, 4});

  Add<LabelWidget>(Slot{kTop, kLight0, kRoom + 1}, NumberOf("SName"), frame.SName, "Server", true);
  Add<CaptionWidget>(Slot{kTop, kMemoryCaption}, "Free Memory:");
  Add<LabelWidget>(Slot{kTop, kMemory}, NumberOf("lblMemory"), frame.lblMemory, kWidestMemory);
  for (int i = 0; i < static_cast<int>(kComponentCount); ++i) {
    const ComponentKind kind = kComponents[static_cast<std::size_t>(i)];
    Add<LightWidget>(Slot{kLights, kLight0 + 2 * i, 1, false}, NumberOf("Sem", i), frame.Sem[kind],
                     NameOf(kind));
    Add<CaptionWidget>(Slot{kLights, kName0 + 2 * i}, NameOf(kind));
  }
  Add<CaptionWidget>(Slot{kLights, kMemoryCaption}, "Last failure:");
  Add<LabelWidget>(Slot{kLights, kMemory}, NumberOf("lblErr"), frame.lblErr, kUsualFailure);
}

}  // namespace tarvo
