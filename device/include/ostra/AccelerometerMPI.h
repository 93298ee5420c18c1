// Tilt sensor. Samples arrive as messages of type kAccelerometerDataChanged to
// registered listeners; x, y, z in whole units (about 1 g = 1), time in microseconds.
#pragma once
#include "ostra/EventMPI.h"

namespace Hollin {
namespace Ostra {

const tEventType kGroupAccelerometer = 0x10000000u;
const tEventType kAccelerometerDataChanged = kGroupAccelerometer | 1u;

struct tAccelerometerData {
  S32 accelX;
  S32 accelY;
  S32 accelZ;
  U64 timeUSecs;
};

class CAccelerometerMessage : public IEventMessage {
 public:
  explicit CAccelerometerMessage(const tAccelerometerData& data)
      : IEventMessage(kAccelerometerDataChanged), m_Data(data) {}
  const tAccelerometerData& GetAccelerometerData() const { return m_Data; }

 private:
  tAccelerometerData m_Data;
};

class CAccelerometerMPI {
 public:
  bool IsAccelerometerPresent() const;
  U32 GetAccelerometerRate() const;  // samples per second
  tErrType SetAccelerometerRate(U32 rate);
  tAccelerometerData GetAccelerometerData() const;
  tErrType RegisterEventListener(IEventListener* listener);
  tErrType UnregisterEventListener(IEventListener* listener);
};

}  // namespace Ostra
}  // namespace Hollin
