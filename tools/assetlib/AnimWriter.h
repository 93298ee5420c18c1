// Sprites: PNG frames and a small description to an ".anim" control file and its
// ".tex" data file (layouts in src/engine/graphics/TileFileFormat.h).
//
// Each frame picture is trimmed to its visible pixels and cut into square tiles; clear
// tiles are dropped. With a sheet (storage kind 2) every distinct tile of the sprite
// is stored once on one resident power-of-two texture; without one (storage kind 0)
// each frame carries its own texture holding its distinct tiles. Frames whose blocks
// come out equal share one offset, so a repeated picture costs nothing and the engine
// reads it once.
//
// Every sequence gets two rectangle series computed from the frames' visible pixels:
// the cell box (kCellBoxHash) and "Collision", the same boxes, so that sprites can be
// hit-tested; a frame with nothing visible has no box. A "Collision" series given in
// the description replaces the computed one.
//
// Description (JSON; file names relative to the description's directory):
// {
//   "tileSize": 16,            8 to 128 (default 16)
//   "format": "4444",          "4444" or "5551" (default "4444")
//   "compress": true,          zlib codes 41/40, else plain 21/20 (default true)
//   "storage": "auto",         "sheet", "frames" or "auto": a sheet when the tiles fit
//   "maxSheet": 512,           largest sheet side for "auto" and "sheet" (default 512)
//   "origin": [0, 0],          the pixel of each picture that is the sprite's (0, 0)
//   "layers": [{"name": "Main", "depth": 0.0}],   default drawing order; default one
//                              layer "Main" at depth 0
//   "sequences": [{
//     "name": "Walk",
//     "origin": [16, 40],      optional, for this sequence
//     "frames": ["w0.png", "w1.png", {"Main": "w2.png", "Shadow": "s2.png"}],
//     "points": {"Hand": [[3, -20], null, [4, -21]], "Origin": [0, 0]},
//     "rects": {"Hit": [[-8, -30, 8, 0], null, [-8, -30, 8, 0]]},
//     "callbacks": {"Footstep": [0, 1, 0], "Sound": {"2": 7}}
//   }]
// }
// A series is either one entry per frame (null for none) or one entry for all frames;
// a callback series is one value per frame or an object of frame index to value.
#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "Bytes.h"
#include "Image.h"

namespace assetlib {

enum class AnimStorage { kAuto, kSheet, kFrames };

struct AnimPoint {
  bool nil = true;
  int x = 0;
  int y = 0;
};

struct AnimRect {
  bool nil = true;
  int left = 0, top = 0, right = 0, bottom = 0;
};

struct AnimLayerDesc {
  std::string name;
  int32_t depthRaw = 0;  // Q16.16
};

struct AnimSequenceDesc {
  std::string name;
  int originX = 0;
  int originY = 0;
  // For each frame, (layer index, picture name) pairs.
  std::vector<std::vector<std::pair<unsigned, std::string>>> frames;
  // Points and rectangles: one entry per frame, or one entry for every frame.
  std::vector<std::pair<std::string, std::vector<AnimPoint>>> points;
  std::vector<std::pair<std::string, std::vector<AnimRect>>> rects;
  std::vector<std::pair<std::string, std::vector<uint32_t>>> callbacks;  // one value per frame
};

struct AnimDesc {
  unsigned tileSize = 16;
  PixelFormat16 format = kFormat4444;
  bool packed = true;
  AnimStorage storage = AnimStorage::kAuto;
  unsigned maxSheet = 512;
  std::vector<AnimLayerDesc> layers;
  std::vector<AnimSequenceDesc> sequences;
};

struct AnimOutput {
  Bytes anim;
  Bytes tex;
  bool sheet = false;       // storage kind 2
  uint32_t sheetWidth = 0;  // pixels
  uint32_t sheetHeight = 0;
  uint32_t distinctTiles = 0;   // on the sheet, or summed over the distinct frames
  uint32_t distinctFrames = 0;  // frame blocks actually stored
};

// Reads the description. `name` (the file's path) starts every error message;
// picture names stay as written, resolved later by the image loader.
bool ParseAnimDescription(const std::string& json, const std::string& name, AnimDesc& out,
                          std::string& error);

// Gives the picture of a name from the description.
typedef std::function<bool(const std::string& name, Image& out, std::string& error)> ImageSource;

bool BuildAnim(const AnimDesc& desc, const ImageSource& images, const std::string& name, AnimOutput& out,
               std::string& error);

// The whole tool: reads the description at `jsonPath` and its PNGs, writes
// prefix + ".anim" and prefix + ".tex".
bool WriteAnim(const std::string& jsonPath, const std::string& prefix, AnimOutput* result,
               std::string& error);

}  // namespace assetlib
