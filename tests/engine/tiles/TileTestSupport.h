// A title directory with a path registry and an automation log, pictures made in
// code, and sprites, pictures and backgrounds written by the asset tools' library
// into it, for the tile and animation tests.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../files/TestFiles.h"
#include "AnimWriter.h"
#include "Image.h"
#include "core/PathRegistry.h"

namespace tiletest {

using assetlib::Image;

// An RGBA colour as bytes.
struct Colour {
  uint8_t r, g, b, a;
};

// A clear picture with one filled box [x0, x1) by [y0, y1).
inline Image Box(uint32_t width, uint32_t height, int x0, int y0, int x1, int y1, Colour c) {
  Image image(width, height);
  for (int y = y0; y < y1; ++y) {
    for (int x = x0; x < x1; ++x) {
      uint8_t* p = image.At(static_cast<uint32_t>(x), static_cast<uint32_t>(y));
      p[0] = c.r;
      p[1] = c.g;
      p[2] = c.b;
      p[3] = c.a;
    }
  }
  return image;
}

// A picture whose every pixel differs from its neighbours: no two tiles are alike.
inline Image Noise(uint32_t width, uint32_t height, uint32_t seed) {
  Image image(width, height);
  uint32_t s = seed * 2654435761u + 1;
  for (uint8_t& byte : image.rgba) {
    s = s * 1103515245u + 12345u;
    byte = static_cast<uint8_t>(s >> 16);
  }
  for (size_t i = 3; i < image.rgba.size(); i += 4) image.rgba[i] = 255;
  return image;
}

// A title directory whose AnimData, Textures and Levels the registry searches.
class TitleFixture : public ::testing::Test {
 protected:
  TitleFixture() : m_Title(m_Dir / "title"), m_Log(m_Dir, Config()) {
    BaseUtils::MakeDirectories(m_Title + "/AnimData");
    BaseUtils::MakeDirectories(m_Title + "/Levels");
    nox::PathRegistry::Create();
  }
  ~TitleFixture() override { nox::PathRegistry::Destroy(); }

  Hollin::Ostra::Host::HostConfig Config() const {
    Hollin::Ostra::Host::HostConfig config;
    config.titlePath = m_Title;
    return config;
  }

  std::string AnimPath(const std::string& name) const { return m_Title + "/AnimData/" + name; }
  std::string LevelPath(const std::string& name) const { return m_Title + "/Levels/" + name; }

  // Builds a sprite with pictures given by name and writes it as `name` into the
  // animation directory. Fails the test on a writer error.
  assetlib::AnimOutput WriteSprite(const std::string& name, const assetlib::AnimDesc& desc,
                                   const std::vector<std::pair<std::string, Image>>& pictures) {
    assetlib::ImageSource images = [&pictures](const std::string& picture, Image& out, std::string& error) {
      for (const auto& p : pictures) {
        if (p.first == picture) {
          out = p.second;
          return true;
        }
      }
      error = picture + ": no such picture";
      return false;
    };
    assetlib::AnimOutput output;
    std::string error;
    EXPECT_TRUE(assetlib::BuildAnim(desc, images, name, output, error)) << error;
    testfiles::WriteBytes(AnimPath(name + ".anim"), output.anim);
    testfiles::WriteBytes(AnimPath(name + ".tex"), output.tex);
    return output;
  }

  // Lines of the automation log that contain `text`.
  int LogCount(const std::string& text) const { return m_Log.Count(text); }

  testfiles::TempDir m_Dir;
  std::string m_Title;
  testfiles::AutomationLog m_Log;
};

// A picture of smooth bands that differ with `seed`: it packs well, and no two
// seeds give one picture.
inline Image Bands(uint32_t width, uint32_t height, uint32_t seed) {
  Image image(width, height);
  for (uint32_t y = 0; y < height; ++y) {
    for (uint32_t x = 0; x < width; ++x) {
      uint8_t* p = image.At(x, y);
      p[0] = static_cast<uint8_t>(x * 8 + seed * 40);
      p[1] = static_cast<uint8_t>(y * 8);
      p[2] = static_cast<uint8_t>((x + y) * 4 + seed * 16);
      p[3] = 255;
    }
  }
  return image;
}

// A description with one layer "Main" and sequences of single-layer frames.
inline assetlib::AnimSequenceDesc Sequence(const std::string& name, const std::vector<std::string>& frames,
                                           int originX = 0, int originY = 0) {
  assetlib::AnimSequenceDesc seq;
  seq.name = name;
  seq.originX = originX;
  seq.originY = originY;
  for (const std::string& f : frames) seq.frames.push_back({{0u, f}});
  return seq;
}

inline assetlib::AnimDesc Description(unsigned tileSize, assetlib::AnimStorage storage, bool packed) {
  assetlib::AnimDesc desc;
  desc.tileSize = tileSize;
  desc.storage = storage;
  desc.packed = packed;
  desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
  return desc;
}

}  // namespace tiletest
