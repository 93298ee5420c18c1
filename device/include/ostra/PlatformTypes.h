// Basic integer types and status codes shared by every platform service.
#pragma once
#include <cstdint>

typedef uint8_t U8;
typedef int8_t S8;
typedef uint16_t U16;
typedef int16_t S16;
typedef uint32_t U32;
typedef int32_t S32;
typedef uint64_t U64;
typedef int64_t S64;

namespace Hollin {
namespace Ostra {

typedef U32 tErrType;
const tErrType kNoErr = 0;
const tErrType kErr = 1;

// Event message groups: the high 16 bits name the sending service.
typedef U32 tEventType;
const tEventType kAllEvents = 0xFFFFFFFFu;

}  // namespace Ostra
}  // namespace Hollin
