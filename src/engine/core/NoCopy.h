// Base of classes that must never be copied or assigned (singletons, owners of
// device handles, file holders).
#pragma once

namespace nox {

class NoCopy {
 protected:
  NoCopy() = default;
  ~NoCopy() = default;

 public:
  NoCopy(const NoCopy&) = delete;
  NoCopy& operator=(const NoCopy&) = delete;
};

}  // namespace nox
