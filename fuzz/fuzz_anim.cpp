// Feeds arbitrary bytes as a sprite: a 4-byte length, the ".anim" control file of that
// length, and the rest as its ".tex" data file. The first byte of the control file
// also picks the loading flags. A refused sprite must hold nothing; an accepted one is
// played through every sequence, its frames fetched and walked tile by tile, its
// points, rectangles and events read, so the sanitizers see any read past the files.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "core/PathRegistry.h"
#include "graphics/RenderBuffer2D.h"
#include "graphics/TileAnimData.h"
#include "graphics/TileAnimFrame.h"
#include "graphics/TileAnimation.h"
#include "ostra/HostConfig.h"

namespace {

std::string TempPrefix() {
  const char* dir = getenv("TMPDIR");
  return std::string(dir && dir[0] ? dir : "/tmp") + "/fuzz-anim-" + std::to_string(getpid());
}

void WriteFile(const std::string& path, const uint8_t* data, size_t size) {
  FILE* out = fopen(path.c_str(), "wb");
  if (!out) return;
  if (size) fwrite(data, 1, size, out);
  fclose(out);
}

unsigned WalkFrame(nox::TileAnimFrame* holder) {
  unsigned sum = 0;
  for (bool more = holder->FirstLayer(); more; more = holder->NextLayer()) {
    const nox::TADLayerBlock* layer = holder->GetLayerBlock();
    for (uint32_t t = 0; t < layer->tileCount; ++t) {
      sum += static_cast<unsigned>(holder->GetTilePositions()[2 * t]) +
             static_cast<unsigned>(holder->GetTileCoords()[2 * t + 1].Raw());
    }
  }
  return sum;
}

void Exercise(const std::string& prefix, bool streamed, bool deferred) {
  nox::TileAnimData data(prefix.c_str(), streamed, deferred);
  if (!data.IsLoaded()) {
    if (data.GetNumSequences() != 0 || data.CreateCellAnimation() != nullptr) std::abort();
    return;
  }
  volatile unsigned sink = 0;
  nox::TileAnimation* sprite = data.CreateCellAnimation();
  nox::TileAnimFrame* holder = data.GetNewFrameHolder();
  nox::RenderBuffer2D buffer;
  const uint32_t sequences = data.GetNumSequences() < 8 ? data.GetNumSequences() : 8;
  for (uint32_t s = 0; s < sequences; ++s) {
    const nox::TADSequenceEntry* seq = data.GetSequenceEntry(s);
    sprite->Play(seq->name, -1);
    sprite->SetLoop(true);
    sprite->SetAnchor(nox::HashString("Origin"));
    const unsigned frames = data.GetSequenceFrameCount(s) < 6 ? data.GetSequenceFrameCount(s) : 6;
    for (unsigned f = 0; f < frames; ++f) {
      sprite->Update(84);
      sprite->DrawBuffered(buffer);
      sink = sink + sprite->GetCallback(data.GetCallbackName(s, 0)) +
             static_cast<unsigned>(sprite->GetCellBoundingRect().left.Raw()) +
             static_cast<unsigned>(sprite->HitTest(nox::Vector2(nox::Real(f), nox::Real(f))));
      if (holder && holder->LoadFrame(s, f)) sink = sink + WalkFrame(holder);
      const nox::TADPointSeries* points =
          seq->numPointSeries ? reinterpret_cast<const nox::TADPointSeries*>(data.GetSequenceData(s)->points)
                              : nullptr;
      if (points)
        sink = sink + static_cast<unsigned>(sprite->GetPoint(points->name, static_cast<int>(f)).x.Raw());
    }
    buffer.Flush();
  }
  if (holder != data.GetSharedFrameHolder()) delete holder;
  delete sprite;
  (void)sink;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  Hollin::Ostra::Host::HostConfig config;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  nox::PathRegistry::Create();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string prefix = TempPrefix();
  if (size < 4) return 0;
  uint32_t animSize;
  memcpy(&animSize, data, 4);
  if (animSize > size - 4) animSize = static_cast<uint32_t>(size - 4);
  WriteFile(prefix + ".anim", data + 4, animSize);
  WriteFile(prefix + ".tex", data + 4 + animSize, size - 4 - animSize);
  const uint8_t flags = animSize > 0 ? data[4] : 0;
  Exercise(prefix, (flags & 1) != 0, (flags & 2) != 0);
  Exercise(prefix, (flags & 1) == 0, true);
  remove((prefix + ".anim").c_str());
  remove((prefix + ".tex").c_str());
  return 0;
}
