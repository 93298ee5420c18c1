// Device half of the accelerometer: registered with the platform's accelerometer
// service for its whole life, it turns each kAccelerometerDataChanged message into an
// AccelerometerState and hands it to FireAccelerometerEvent. The platform may call
// Notify from its own thread; nothing is locked.
#pragma once
#include <cstdint>

#include "core/NoCopy.h"
#include "core/Real.h"
#include "ostra/AccelerometerMPI.h"

namespace nox {

// One reading: x, y, z in units of about 1 g, and the time in whole ms.
struct AccelerometerState {
  Real x;
  Real y;
  Real z;
  Real time;  // ms
};

class Accelerometer_pf : public NoCopy, public Hollin::Ostra::IEventListener {
 public:
  Hollin::Ostra::tErrType Notify(const Hollin::Ostra::IEventMessage& message) override;

  // The reading of a platform sample: whole units shifted into Reals, microseconds
  // cut to whole milliseconds.
  static AccelerometerState ToState(const Hollin::Ostra::tAccelerometerData& data);

 protected:
  Accelerometer_pf();
  ~Accelerometer_pf() override;

  virtual void FireAccelerometerEvent(const AccelerometerState& state) = 0;

  bool IsPresent() const { return m_MPI.IsAccelerometerPresent(); }
  uint32_t GetRate() const { return m_MPI.GetAccelerometerRate(); }
  void SetRate(uint32_t samplesPerSecond) { m_MPI.SetAccelerometerRate(samplesPerSecond); }

 private:
  Hollin::Ostra::CAccelerometerMPI m_MPI;
};

}  // namespace nox
