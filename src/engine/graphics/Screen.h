// The one display of the device, id 0: the mapping between device pixels and the
// engine's virtual pixels, the orientation, and the state of each finger on the glass.
//
// Virtual pixels run right and down from the top left. The virtual space is the
// device's own size, so only the orientation makes the two differ: the input hands
// touches over in normalized device coordinates and the screen turns them by its
// orientation into virtual pixels. Every pixel answer is cut with WholePixel.
//
// Touch states: one per live finger, updated by the input on each change and once a
// frame while a finger is down. A state stays one update after its finger lifted so
// that readers see `released`. With auto-orientation on, the screen listens to the
// accelerometer and takes each orientation it reports that the allowed mask permits.
// The screen manager owns the screen.
#pragma once
#include <cstdint>
#include <vector>

#include "core/EventListener.h"
#include "core/Real.h"
#include "core/Vector2.h"
#include "graphics/Rectangle.h"
#include "graphics/TouchStateData.h"
#include "platform/Screen_pf.h"

namespace nox {

class Accelerometer;

class Screen : public Screen_pf, public EventListener<Accelerometer> {
 public:
  enum Orientation {
    kUpright = 0,
    kSideways1 = 1,  // turned a quarter one way
    kSideways2 = 2,  // and the other way
    kUpsideDown = 3,
  };

  struct MultiTouchState {
    uint32_t id = 0;
    Vector2 triggerPosition;  // virtual pixels, where the finger came down
    Vector2 heldPosition;     // at the last update while down
    Vector2 releasePosition;  // where it lifted
    Vector2 lastPosition;     // the latest of the three
    uint32_t reserved[2] = {0, 0};
    uint32_t lastEventMS = 0;  // host ms of the last change
    uint16_t tapCount = 0;     // 2 for a double tap
    uint32_t gesture = 0;
    bool down = false;
    bool triggered = false;  // came down in this update
    bool released = false;   // lifted in this update
  };

  static constexpr int kReservedTouchStates = 5;

  // An unused screen, id 0xFFFFFFFF and no size.
  Screen();
  // The display's screen: the virtual rectangle is (0, 0, deviceWidth, deviceHeight);
  // the last two sizes are kept and never read.
  Screen(uint32_t id, uint16_t deviceWidth, uint16_t deviceHeight, uint16_t width2, uint16_t height2);
  ~Screen();

  uint32_t GetId() const { return m_Id; }
  uint16_t GetDeviceWidth() const { return m_DeviceWidth; }
  uint16_t GetDeviceHeight() const { return m_DeviceHeight; }
  const Rectangle& GetVirtualRectangle() const { return m_VirtualRect; }
  void SetVirtualRectangle(const Rectangle& r) { m_VirtualRect = r; }
  Orientation GetOrientation() const { return m_Orientation; }
  void SetOrientation(Orientation o) { m_Orientation = o; }
  // Bit n allows orientation n; 15 allows all.
  uint32_t GetAllowedOrientations() const { return m_AllowedOrientations; }
  void SetAllowedOrientations(uint32_t mask) { m_AllowedOrientations = mask; }
  bool IsAutoOrientationEnabled() const { return m_bAutoOrientation; }
  // Orientation 1 or 2: the screen is held on its side.
  bool IsSideways() const { return m_Orientation == kSideways1 || m_Orientation == kSideways2; }

  // Whole device pixels of a virtual point; the orientation is not looked at.
  Vector2 GetDevicePixelFromVirtualPixel(Real x, Real y) const;
  // Whole virtual pixels of a device pixel, through its centre.
  Vector2 GetVirtualPixelFromDevicePixel(Real x, Real y) const;
  // Whole virtual pixels of a normalized device point (-1.0 to 1.0, y up).
  Vector2 GetVirtualPixelFromDeviceNormalizedPixel(Real x, Real y) const;
  // The virtual rectangle, scaled for a sideways orientation.
  void GetVirtualPixelMapping(Rectangle& out) const;
  Real GetVirtualPixelLeft() const;
  Real GetVirtualPixelTop() const;

  void UpdateTouchState(const TouchStateData& data);
  void ResetTouchState() { m_TouchStates.clear(); }
  // The first finger's last release completed a double tap.
  bool WasTouchDoubleTap() const;
  int GetTouchStateCount() const { return static_cast<int>(m_TouchStates.size()); }
  const MultiTouchState& GetTouchState(int index) const { return m_TouchStates[index]; }
  // Null when no state has this id.
  const MultiTouchState* FindTouchState(uint32_t id) const;

  // Follows the accelerometer's orientation while on. Turning it on raises a zero or
  // slower-than-once-a-second update interval to 1.0 s; turning it off restores it.
  void EnableAutoOrientation(bool enable);
  // Event type 1 carries an orientation (0 to 3) in m_Param.
  void OnEventOccurred(Accelerometer* source, const EventData* data) override;

 private:
  // H / W for left and right, W / H for top and bottom, when sideways; else 1.0.
  Real HorizontalScale() const;
  Real VerticalScale() const;

  uint32_t m_Id;
  uint16_t m_DeviceWidth;   // device pixels
  uint16_t m_DeviceHeight;  // device pixels
  uint16_t m_Width2;        // stored, not read
  uint16_t m_Height2;
  std::vector<MultiTouchState> m_TouchStates;  // one per live finger, oldest first
  Rectangle m_VirtualRect;                     // virtual pixels
  Orientation m_Orientation = kUpright;
  uint32_t m_AllowedOrientations = 15;
  Real m_SavedUpdateInterval;  // seconds, the accelerometer's while auto-orientation is on
  bool m_bAutoOrientation = false;
};

}  // namespace nox
