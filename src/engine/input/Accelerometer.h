// The tilt sensor: keeps the last reading and the orientation the device is held in,
// and tells its listeners of both. Each reading may change the orientation: y below
// -0.5 gives upright (0), y above 0.5 upside down (3), x below -0.5 the first
// sideways orientation (1), x above 0.5 the second (2), tested in that order with one
// event per change. Between -0.5 and 0.5 nothing changes, which gives the hysteresis
// that keeps a device held at a slant from flipping back and forth.
//
// Events: kOrientationChanged with the new orientation in m_Param, then, for every
// reading, kReadingChanged with the AccelerometerState in m_pData. Owned by the input.
#pragma once
#include <cstdint>

#include "core/EventSource.h"
#include "core/Real.h"
#include "platform/Accelerometer_pf.h"

namespace nox {

class Accelerometer : public Accelerometer_pf, public EventSource<Accelerometer> {
 public:
  enum EventType { kReadingChanged = 0, kOrientationChanged = 1 };

  Accelerometer() = default;
  ~Accelerometer() override = default;

  bool HasAccelerometer() const { return IsPresent(); }
  // Seconds between samples: 1.0 / the platform's rate.
  Real GetUpdateInterval() const;
  // Sets the rate to the whole part of 1.0 / seconds; a zero interval is ignored.
  void SetUpdateInterval(Real seconds);

  const AccelerometerState& GetState() const { return m_State; }
  uint32_t GetOrientation() const { return m_Orientation; }

  // Stores the reading, fires the orientation changes it causes, then the reading.
  void FireAccelerometerEvent(const AccelerometerState& state) override;
  // Stores the reading and fires the orientation changes it causes.
  void UpdateAccelerometerState(const AccelerometerState& state);

 private:
  void ChangeOrientation(uint32_t orientation);

  AccelerometerState m_State;
  uint32_t m_Orientation = 0;  // 0 to 3, as nox::Screen counts them
};

}  // namespace nox
