#include "input/Accelerometer.h"

#include "core/Debug.h"

namespace nox {

namespace {

const Real kThreshold = Real::FromRaw(0x8000);  // 0.5

}  // namespace

Real Accelerometer::GetUpdateInterval() const {
  const uint32_t rate = GetRate();
  return rate == 0 ? Real(0) : Real(1) / Real(static_cast<unsigned long>(rate));
}

void Accelerometer::SetUpdateInterval(Real seconds) {
  AutomationPrintf("Accelerometer SetUpdateInterval: %f\n", static_cast<double>(seconds.ToFloat()));
  if (seconds == Real(0)) return;
  const int32_t rate = (Real(1) / seconds).ToInt();
  if (rate > 0) SetRate(static_cast<uint32_t>(rate));
}

void Accelerometer::FireAccelerometerEvent(const AccelerometerState& state) {
  UpdateAccelerometerState(state);
  EventData data;
  data.m_Type = kReadingChanged;
  data.m_pData = &m_State;
  FireEvent(this, &data);
}

void Accelerometer::UpdateAccelerometerState(const AccelerometerState& state) {
  m_State = state;
  if (state.y < -kThreshold && m_Orientation != 0) ChangeOrientation(0);
  if (state.y > kThreshold && m_Orientation != 3) ChangeOrientation(3);
  if (state.x < -kThreshold && m_Orientation != 1) ChangeOrientation(1);
  if (state.x > kThreshold && m_Orientation != 2) ChangeOrientation(2);
}

void Accelerometer::ChangeOrientation(uint32_t orientation) {
  m_Orientation = orientation;
  EventData data;
  data.m_Type = kOrientationChanged;
  data.m_Param = orientation;
  data.m_pData = &m_State;
  FireEvent(this, &data);
}

}  // namespace nox
