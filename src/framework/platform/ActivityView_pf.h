// Device half of ActivityView: the GL model-view matrix saved around the world layer,
// which the camera moves while the screen's fixed layer stays put.
#pragma once

namespace noxfw {

class ActivityView_pf {
 protected:
  ActivityView_pf() = default;
  ~ActivityView_pf() = default;

  // Saves the model-view matrix (the mode is left at GL_MODELVIEW).
  static void PushModelView();
  static void PopModelView();
};

}  // namespace noxfw
