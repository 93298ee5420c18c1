#include "platform/Accelerometer_pf.h"

namespace nox {

Accelerometer_pf::Accelerometer_pf() : Hollin::Ostra::IEventListener(Hollin::Ostra::kGroupAccelerometer) {
  m_MPI.RegisterEventListener(this);
}

Accelerometer_pf::~Accelerometer_pf() {
  m_MPI.UnregisterEventListener(this);
}

AccelerometerState Accelerometer_pf::ToState(const Hollin::Ostra::tAccelerometerData& data) {
  AccelerometerState state;
  state.x = Real(static_cast<long>(data.accelX));
  state.y = Real(static_cast<long>(data.accelY));
  state.z = Real(static_cast<long>(data.accelZ));
  state.time = Real(static_cast<unsigned long>(data.timeUSecs / 1000));
  return state;
}

Hollin::Ostra::tErrType Accelerometer_pf::Notify(const Hollin::Ostra::IEventMessage& message) {
  if (message.GetEventType() != Hollin::Ostra::kAccelerometerDataChanged) return Hollin::Ostra::kNoErr;
  const auto& sample = static_cast<const Hollin::Ostra::CAccelerometerMessage&>(message);
  FireAccelerometerEvent(ToState(sample.GetAccelerometerData()));
  return Hollin::Ostra::kNoErr;
}

}  // namespace nox
