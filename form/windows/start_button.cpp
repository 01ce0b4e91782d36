#include "form/windows/start_button.h"

#include <algorithm>
#include <utility>

namespace tarvo {

StartButton::StartButton(Stage& stage, HWND parent, int id, CommandButton& button,
                         std::string widest)
    : DrawnButton(stage, parent, id, button, button.Caption()), widest_(std::move(widest)) {
  Attach();
}

Extent StartButton::Natural() const {
  const Look& look = stage_.look;
  const int width = look.TextExtent(widest_, false, true).width + look.Px(28);
  return {std::max(width, look.Px(76)), look.ControlHeight() + look.Px(4)};
}

void StartButton::Show() {
  SetText(control_.Caption());
  if (shown_ == control_.Background()) return;
  shown_ = control_.Background();
  InvalidateRect(Window(), nullptr, FALSE);
}

void StartButton::Draw(const DRAWITEMSTRUCT& item) {
  ButtonFace face = FaceNow(item);
  face.caption = control_.Caption();
  face.accessKey = AccessKey();
  face.showKey = (item.itemState & ODS_NOACCEL) == 0;
  face.colour = control_.Background();
  DrawButtonFace(item.hDC, item.rcItem, face, stage_.look.Font());
}

}  // namespace tarvo
