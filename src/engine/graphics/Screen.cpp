#include "graphics/Screen.h"

#include "core/GameHost.h"
#include "graphics/WholePixel.h"
#include "input/Accelerometer.h"
#include "input/Input.h"

namespace nox {

namespace {

const Real kHalf = Real::FromRaw(0x8000);
const Real kOne = Real(1);
const Real kTwo = Real(2);

uint32_t HostMilliseconds() {
  return GameHost::s_pGameHost ? GameHost::s_pGameHost->GetCurrentMilliseconds() : 0;
}

}  // namespace

Screen::Screen() : m_Id(0xFFFFFFFFu), m_DeviceWidth(0), m_DeviceHeight(0), m_Width2(0), m_Height2(0) {}

Screen::Screen(uint32_t id, uint16_t deviceWidth, uint16_t deviceHeight, uint16_t width2, uint16_t height2)
    : m_Id(id),
      m_DeviceWidth(deviceWidth),
      m_DeviceHeight(deviceHeight),
      m_Width2(width2),
      m_Height2(height2),
      m_VirtualRect(Real(0), Real(0), Real(static_cast<int>(deviceWidth)),
                    Real(static_cast<int>(deviceHeight))) {
  m_TouchStates.reserve(kReservedTouchStates);
}

Screen::~Screen() {
  EnableAutoOrientation(false);
}

Real Screen::HorizontalScale() const {
  if (!IsSideways()) return kOne;
  const Rectangle& r = m_VirtualRect;
  return WholeExtent(r.top, r.bottom) / WholeExtent(r.left, r.right);
}

Real Screen::VerticalScale() const {
  if (!IsSideways()) return kOne;
  const Rectangle& r = m_VirtualRect;
  return WholeExtent(r.left, r.right) / WholeExtent(r.top, r.bottom);
}

void Screen::GetVirtualPixelMapping(Rectangle& out) const {
  out = m_VirtualRect;
  if (!IsSideways()) return;
  const Real h = HorizontalScale();
  const Real v = VerticalScale();
  out.left *= h;
  out.right *= h;
  out.top *= v;
  out.bottom *= v;
}

Real Screen::GetVirtualPixelLeft() const {
  return IsSideways() ? m_VirtualRect.left * HorizontalScale() : m_VirtualRect.left;
}

Real Screen::GetVirtualPixelTop() const {
  return IsSideways() ? m_VirtualRect.top * VerticalScale() : m_VirtualRect.top;
}

Vector2 Screen::GetDevicePixelFromVirtualPixel(Real x, Real y) const {
  const Rectangle& r = m_VirtualRect;
  Real dx = ((x - r.left) / (r.right - r.left)) * Real(static_cast<int>(m_DeviceWidth));
  Real dy = ((y - r.top) / (r.bottom - r.top)) * Real(static_cast<int>(m_DeviceHeight));
  return Vector2(WholePixel(dx), WholePixel(dy));
}

Vector2 Screen::GetVirtualPixelFromDevicePixel(Real x, Real y) const {
  const Real hw = Real(static_cast<int>(m_DeviceWidth >> 1));
  const Real hh = Real(static_cast<int>(m_DeviceHeight >> 1));
  return GetVirtualPixelFromDeviceNormalizedPixel((x + kHalf - hw) / hw, (hh - kHalf - y) / hh);
}

Vector2 Screen::GetVirtualPixelFromDeviceNormalizedPixel(Real x, Real y) const {
  Real nx = x;
  Real ny = y;
  switch (m_Orientation) {
    case kSideways1:
      nx = -y;
      ny = x;
      break;
    case kSideways2:
      nx = y;
      ny = -x;
      break;
    case kUpsideDown:
      nx = -x;
      ny = -y;
      break;
    case kUpright:
      break;
  }
  Rectangle m;
  GetVirtualPixelMapping(m);
  Real vx = m.left + (m.right - m.left) * ((nx + kOne) / kTwo);
  Real vy = m.top + (m.bottom - m.top) * (kOne - (ny + kOne) / kTwo);
  return Vector2(WholePixel(vx), WholePixel(vy));
}

void Screen::UpdateTouchState(const TouchStateData& data) {
  // A finger that lifted in the last update has been seen; drop it, keeping the order.
  auto end = m_TouchStates.begin();
  for (auto it = m_TouchStates.begin(); it != m_TouchStates.end(); ++it) {
    if (!it->released) *end++ = *it;
  }
  m_TouchStates.erase(end, m_TouchStates.end());

  MultiTouchState* state = nullptr;
  for (MultiTouchState& s : m_TouchStates) {
    if (s.id == data.id) {
      state = &s;
      break;
    }
  }
  if (!state) {
    m_TouchStates.emplace_back();
    state = &m_TouchStates.back();
    state->id = data.id;
  }

  const bool wasDown = state->down;
  state->released = !data.down && wasDown;
  state->triggered = data.down && !wasDown;
  state->down = data.down;
  state->tapCount = data.tapCount;
  state->gesture = data.gesture;

  const Vector2 position = GetVirtualPixelFromDeviceNormalizedPixel(data.x, data.y);
  const uint32_t now = HostMilliseconds();
  if (state->triggered) {
    state->triggerPosition = position;
    state->lastPosition = position;
    state->lastEventMS = now;
  }
  if (state->down) {
    state->heldPosition = position;
    state->lastPosition = position;
    state->lastEventMS = now;
  }
  if (state->released) {
    state->releasePosition = position;
    state->lastPosition = position;
    state->lastEventMS = now;
  }
}

bool Screen::WasTouchDoubleTap() const {
  return !m_TouchStates.empty() && m_TouchStates.front().tapCount == 2;
}

const Screen::MultiTouchState* Screen::FindTouchState(uint32_t id) const {
  for (const MultiTouchState& s : m_TouchStates) {
    if (s.id == id) return &s;
  }
  return nullptr;
}

void Screen::EnableAutoOrientation(bool enable) {
  Input* input = Input::s_pInput;
  if (m_bAutoOrientation) {
    if (input) {
      input->GetAccelerometer().RemoveEventListener(this);
      input->GetAccelerometer().SetUpdateInterval(m_SavedUpdateInterval);
    }
    m_bAutoOrientation = false;
  }
  if (!enable || !input) return;
  Accelerometer& accelerometer = input->GetAccelerometer();
  m_SavedUpdateInterval = accelerometer.GetUpdateInterval();
  accelerometer.AddEventListener(this);
  if (m_SavedUpdateInterval == Real(0) || m_SavedUpdateInterval > kOne) accelerometer.SetUpdateInterval(kOne);
  m_bAutoOrientation = true;
}

void Screen::OnEventOccurred(Accelerometer*, const EventData* data) {
  if (!data || data->m_Type != Accelerometer::kOrientationChanged) return;
  const uint32_t orientation = data->m_Param;
  if (orientation > kUpsideDown) return;
  if (m_AllowedOrientations & (1u << orientation)) m_Orientation = static_cast<Orientation>(orientation);
}

}  // namespace nox
