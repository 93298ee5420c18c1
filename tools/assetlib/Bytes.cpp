#include "Bytes.h"

#include <zlib.h>

#include <cerrno>
#include <cstdio>

namespace assetlib {

Bytes Pack(const uint8_t* data, size_t size) {
  uLongf bound = compressBound(size);
  Bytes out(bound);
  compress2(out.data(), &bound, data, size, Z_BEST_COMPRESSION);
  out.resize(bound);
  return out;
}

bool Unpack(const uint8_t* data, size_t packed, size_t size, Bytes& out) {
  out.assign(size, 0);
  uLongf got = size;
  return uncompress(out.data(), &got, data, packed) == Z_OK && got == size;
}

bool ReadFile(const std::string& path, Bytes& out, std::string& error) {
  FILE* file = fopen(path.c_str(), "rb");
  if (!file) {
    error = path + ": " + strerror(errno);
    return false;
  }
  out.clear();
  uint8_t buffer[65536];
  size_t n;
  while ((n = fread(buffer, 1, sizeof(buffer), file)) > 0) out.insert(out.end(), buffer, buffer + n);
  const bool ok = !ferror(file);
  fclose(file);
  if (!ok) error = path + ": read error";
  return ok;
}

bool WriteFile(const std::string& path, const Bytes& data, std::string& error) {
  FILE* file = fopen(path.c_str(), "wb");
  if (!file) {
    error = path + ": " + strerror(errno);
    return false;
  }
  const bool ok = (data.empty() || fwrite(data.data(), 1, data.size(), file) == data.size());
  if (fclose(file) != 0 || !ok) {
    error = path + ": write error";
    return false;
  }
  return true;
}

}  // namespace assetlib
