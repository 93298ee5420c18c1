// Feeds arbitrary bytes as a streamed ".ogg" file to the platform's audio module and
// mixes until the sound ends (at most 3 s of output). Whatever the bytes, the sound must
// start or be refused, and a started sound must end by itself with its done message or
// still be playing after the 3 s.
#include <sys/mman.h>
#include <unistd.h>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "ostra/AudioMPI.h"
#include "ostra/HostAudio.h"

namespace {

namespace Ostra = Hollin::Ostra;

int MemoryFile() {
  static int fd = memfd_create("fuzz_ogg", 0);
  return fd;
}

struct DoneCounter : Ostra::IEventListener {
  Ostra::tErrType Notify(const Ostra::IEventMessage&) override {
    ++count;
    return Ostra::kNoErr;
  }
  std::atomic<int> count{0};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static DoneCounter done;
  const int fd = MemoryFile();
  if (fd < 0 || ftruncate(fd, 0) != 0) std::abort();
  if (size > 0 && pwrite(fd, data, size, 0) != static_cast<ssize_t>(size)) std::abort();
  Ostra::CAudioMPI audio;
  audio.SetDefaultAudioEventListener(&done);
  done.count = 0;
  const Ostra::tAudioID id = audio.StartAudio("/proc/self/fd/" + std::to_string(fd), 100, 1, 0, nullptr, 0,
                                              Ostra::kAudioOptionsDoneMsgAfterComplete);
  if (id == Ostra::kNoAudioID) return 0;
  for (int ms = 0; ms < 3000 && audio.IsAudioPlaying(id); ms += 250) Ostra::HostAudio::MixMilliseconds(250);
  if (!audio.IsAudioPlaying(id) && done.count != 1) std::abort();
  audio.StopAllAudio();
  Ostra::HostAudio::MixMilliseconds(0);
  return 0;
}
