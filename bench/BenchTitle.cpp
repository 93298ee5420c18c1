#include "BenchTitle.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <vector>

#include "Image.h"
#include "core/GameHost.h"
#include "core/PathRegistry.h"
#include "ostra/HostConfig.h"

namespace bench {

namespace fs = std::filesystem;

BenchTitle::BenchTitle(const std::string& tag) : m_Tag(tag) {
  std::string pattern = "/tmp/" + tag + "-XXXXXX";
  std::vector<char> buffer(pattern.begin(), pattern.end());
  buffer.push_back('\0');
  if (mkdtemp(buffer.data())) {
    m_Dir = buffer.data();
    std::error_code ec;
    fs::create_directories(m_Dir + "/title/AnimData", ec);
    if (!ec) fs::create_directories(m_Dir + "/title/Levels", ec);
    if (!ec) m_Title = m_Dir + "/title";
  }
  if (m_Title.empty()) fprintf(stderr, "%s: could not make a title under /tmp\n", m_Tag.c_str());
  Hollin::Ostra::Host::HostConfig config;
  config.titlePath = m_Title;
  config.clock = Hollin::Ostra::Host::ClockMode::kVirtual;
  config.quiet = true;
  Hollin::Ostra::Host::SetHostConfig(config);
  nox::GameHost::Create();
  nox::PathRegistry::Create();
}

BenchTitle::~BenchTitle() {
  nox::PathRegistry::Destroy();
  nox::GameHost::Destroy();
  if (m_Dir.empty()) return;
  std::error_code ec;
  fs::remove_all(m_Dir, ec);
  if (ec) fprintf(stderr, "%s: could not remove %s\n", m_Tag.c_str(), m_Dir.c_str());
}

bool BenchTitle::Write(const std::string& file, const assetlib::Bytes& bytes) const {
  return Write(file, std::string(bytes.begin(), bytes.end()));
}

bool BenchTitle::Write(const std::string& file, const std::string& text) const {
  FILE* out = m_Title.empty() ? nullptr : fopen((m_Title + "/" + file).c_str(), "wb");
  const bool ok = out && fwrite(text.data(), 1, text.size(), out) == text.size();
  if ((out && fclose(out) != 0) || !ok) {
    fprintf(stderr, "%s: could not write %s\n", m_Tag.c_str(), file.c_str());
    return false;
  }
  return true;
}

bool BenchTitle::WriteSprite(const std::string& name, const assetlib::AnimDesc& desc,
                             const assetlib::ImageSource& images) const {
  std::string error;
  assetlib::AnimOutput anim;
  if (!assetlib::BuildAnim(desc, images, name, anim, error)) {
    fprintf(stderr, "%s: %s\n", m_Tag.c_str(), error.c_str());
    return false;
  }
  return Write("AnimData/" + name + ".anim", anim.anim) && Write("AnimData/" + name + ".tex", anim.tex);
}

bool BenchTitle::WriteWalker(const std::string& name, int frames) const {
  assetlib::AnimDesc desc;
  desc.tileSize = 8;
  desc.storage = assetlib::AnimStorage::kSheet;
  desc.layers.push_back(assetlib::AnimLayerDesc{"Main", 0});
  assetlib::AnimSequenceDesc walk;
  walk.name = "Walk";
  std::vector<assetlib::AnimRect> collider;
  for (int f = 0; f < frames; ++f) {
    walk.frames.push_back({{0u, std::to_string(f)}});
    collider.push_back({false, 2, 4 + (f & 1), 14, 32});
  }
  walk.rects.push_back({"Collision", collider});
  walk.points.push_back({"Feet", {{false, 8, 32}}});
  desc.sequences.push_back(walk);
  const assetlib::ImageSource images = [](const std::string& picture, assetlib::Image& out, std::string&) {
    const int f = atoi(picture.c_str());
    out = assetlib::Image(16, 32);
    for (uint32_t y = 0; y < 32; ++y) {
      for (uint32_t x = 0; x < 16; ++x) {
        uint8_t* p = out.At(x, y);
        p[0] = static_cast<uint8_t>(x * 16);
        p[1] = static_cast<uint8_t>(y * 8 + f * 40);
        p[2] = 128;
        p[3] = 255;
      }
    }
    return true;
  };
  return WriteSprite(name, desc, images);
}

}  // namespace bench
