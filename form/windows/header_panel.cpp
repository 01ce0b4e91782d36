#include "form/windows/pages.h"

#include "form/control_ids.h"
#include "form/windows/light_widget.h"
#include "toolkit/windows/label_widgets.h"

namespace tarvo {
namespace {

/// The longest read-out of a machine with terabytes, so that the label never moves.
constexpr char kWidestMemory[] = "100% (9,999,999.99 MB)";
constexpr char kUsualFailure[] = "Login: 2026-12-31 23:59:59";

/// A light, its component's name and its last hour, three times; then the figures. The strips take
/// the space that is left over.
enum Column { kLight0, kName0, kStrip0, kMemoryCaption = 9, kMemory };
enum Row { kTop, kLights };

}  // namespace

void FillHeader(Panel& panel, Frame& frame) {
  panel.SetColumns({{12}, {8}, {8, true}, {20}, {8}, {8, true}, {20}, {8}, {8, true}, {24}, {8}});
  panel.SetRows({{8}, {4}});
  panel.SetMargin({12, 8});

  panel.Add<LabelWidget>(Slot{kTop, kLight0, kMemoryCaption}, NumberOf("SName"), frame.SName,
                         "Server", true);
  panel.Add<CaptionWidget>(Slot{kTop, kMemoryCaption}, "Free Memory:");
  panel.Add<LabelWidget>(Slot{kTop, kMemory}, NumberOf("lblMemory"), frame.lblMemory,
                         kWidestMemory);
  for (int i = 0; i < static_cast<int>(kComponentCount); ++i) {
    const ComponentKind kind = kComponents[static_cast<std::size_t>(i)];
    panel.Add<LightWidget>(Slot{kLights, kLight0 + 3 * i, 1, false}, NumberOf("Sem", i),
                           frame.Sem[kind], NameOf(kind));
    panel.Add<CaptionWidget>(Slot{kLights, kName0 + 3 * i}, NameOf(kind));
    panel.Add<StripWidget>(Slot{kLights, kStrip0 + 3 * i}, NumberOf("Strip", i), frame.Strip[kind]);
  }
  panel.Add<CaptionWidget>(Slot{kLights, kMemoryCaption}, "Last failure:");
  panel.Add<LabelWidget>(Slot{kLights, kMemory}, NumberOf("lblErr"), frame.lblErr, kUsualFailure);
}

}  // namespace tarvo
