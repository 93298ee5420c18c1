// Unpacks zlib streams for the per-frame paths (sprite frames fetched as they play,
// background tiles streamed while scrolling) without allocating: one inflate stream
// is made on first use, reset for each block and kept until the program ends.
// zlib's one-shot uncompress would allocate and free its state on every call. Like
// the rest of the engine, this is used from the game's one thread only.
#pragma once

namespace nox {

class Inflater {
 public:
  // Unpacks the whole stream `in` (`inSize` bytes) into `out`, at most `outSize`
  // bytes. True when the stream ended within that room; `outSize` is then the number
  // of bytes written. A malformed or truncated stream, or one that needs more room,
  // gives false, with whatever was written left in `out`.
  static bool Inflate(void* out, unsigned long& outSize, const void* in, unsigned long inSize);
};

}  // namespace nox
