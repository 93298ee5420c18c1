#include "core/Inflater.h"

#include <zlib.h>

namespace nox {

namespace {

// The stream and whether zlib could set it up; freed by inflateEnd at exit.
struct Stream {
  z_stream z = {};
  bool ok = false;
  Stream() { ok = inflateInit(&z) == Z_OK; }
  ~Stream() {
    if (ok) inflateEnd(&z);
  }
};

}  // namespace

bool Inflater::Inflate(void* out, unsigned long& outSize, const void* in, unsigned long inSize) {
  static Stream s_Stream;
  z_stream& z = s_Stream.z;
  // zlib counts in uInt; blocks here are far smaller, anything larger is refused.
  if (!s_Stream.ok || inSize > 0xFFFFFFFFul || outSize > 0xFFFFFFFFul || inflateReset(&z) != Z_OK)
    return false;
  z.next_in = static_cast<Bytef*>(const_cast<void*>(in));
  z.avail_in = static_cast<uInt>(inSize);
  z.next_out = static_cast<Bytef*>(out);
  z.avail_out = static_cast<uInt>(outSize);
  const int result = inflate(&z, Z_FINISH);
  outSize = z.total_out;
  return result == Z_STREAM_END;
}

}  // namespace nox
