// Device half of the telemetry logger: hands a finished record to the platform's log.
#pragma once

class CLogData;

namespace noxfw {

class Logger_pf {
 protected:
  // The platform neither reports nor retries a failed append.
  static void Append(const CLogData& record);
};

}  // namespace noxfw
