#include "ArtBuilder.h"

#include <atomic>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <mutex>
#include <set>
#include <sstream>
#include <thread>

#include "BuildCache.h"
#include "FramePainter.h"

namespace artgen {

namespace {

namespace fs = std::filesystem;

// A picture's key covers artgen itself, so a change to a painter remakes the art.
uint64_t GeneratorKey() {
  std::ifstream in("/proc/self/exe", std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  return soundgen::Fnv64(bytes.str());
}

// Manifests give points and rectangles in canvas pixels; the files hold them from the
// sprite's origin. A single entry stays single: the builder gives it to every frame, and
// refuses a count that fits neither (a sequence made the "same" as one of other length).
template <typename T>
void FromOrigin(const std::vector<T>& values, const std::vector<bool>& present, int dx, int dy,
                std::vector<bool>& nilOut, std::vector<T>& out) {
  for (size_t i = 0; i < values.size(); ++i) {
    T v = values[i];
    for (size_t k = 0; k < v.size(); ++k) v[k] -= k % 2 ? dy : dx;
    out.push_back(v);
    nilOut.push_back(!present[i]);
  }
}

bool WriteAtomically(const std::string& path, const assetlib::Bytes& bytes, std::string& error) {
  const std::string temp = path + ".part";
  if (!assetlib::WriteFile(temp, bytes, error)) return false;
  std::error_code ec;
  fs::rename(temp, path, ec);
  if (ec) {
    error = path + ": " + ec.message();
    return false;
  }
  return true;
}

struct Job {
  const SpriteRecipe* sprite = nullptr;
  const BackgroundRecipe* background = nullptr;
  std::vector<std::pair<std::string, std::string>> files;  // path, suffix
  uint64_t key = 0;
};

}  // namespace

bool MakeSprite(const SpriteRecipe& sprite, assetlib::AnimOutput& out, std::string& error) {
  assetlib::AnimDesc desc;
  desc.tileSize = static_cast<unsigned>(sprite.tileSize);
  desc.format = sprite.format4444 ? assetlib::kFormat4444 : assetlib::kFormat5551;
  desc.packed = sprite.packed;
  desc.storage = static_cast<assetlib::AnimStorage>(sprite.storage);
  desc.maxSheet = 1024;
  for (const LayerRecipe& l : sprite.layers) {
    desc.layers.push_back(
        assetlib::AnimLayerDesc{l.name, static_cast<int32_t>(std::lround(l.depth * 65536))});
  }
  for (size_t s = 0; s < sprite.sequences.size(); ++s) {
    const SequenceRecipe& seq = sprite.sequences[s];
    assetlib::AnimSequenceDesc d;
    d.name = seq.name;
    d.originX = sprite.originX;
    d.originY = sprite.originY;
    for (int f = 0; f < seq.frames; ++f) {
      std::vector<std::pair<unsigned, std::string>> layers;
      for (unsigned l = 0; l < sprite.layers.size(); ++l) {
        layers.push_back({l, std::to_string(s) + "/" + std::to_string(f) + "/" + std::to_string(l)});
      }
      d.frames.push_back(layers);
    }
    for (const PointSeries& p : seq.points) {
      std::vector<std::array<int, 2>> values;
      std::vector<bool> nil;
      FromOrigin(p.values, p.present, sprite.originX, sprite.originY, nil, values);
      std::vector<assetlib::AnimPoint> points;
      for (size_t i = 0; i < values.size(); ++i) points.push_back({nil[i], values[i][0], values[i][1]});
      d.points.push_back({p.name, points});
    }
    for (const RectSeries& r : seq.rects) {
      std::vector<std::array<int, 4>> values;
      std::vector<bool> nil;
      FromOrigin(r.values, r.present, sprite.originX, sprite.originY, nil, values);
      std::vector<assetlib::AnimRect> rects;
      for (size_t i = 0; i < values.size(); ++i) {
        rects.push_back({nil[i], values[i][0], values[i][1], values[i][2], values[i][3]});
      }
      d.rects.push_back({r.name, rects});
    }
    for (const CallbackSeries& c : seq.callbacks) {
      std::vector<uint32_t> values(static_cast<size_t>(seq.frames), 0);
      for (const auto& v : c.values) values[static_cast<size_t>(v.first)] = v.second;
      d.callbacks.push_back({c.name, values});
    }
    desc.sequences.push_back(d);
  }
  const assetlib::ImageSource images = [&sprite](const std::string& name, assetlib::Image& image,
                                                 std::string&) {
    unsigned s = 0, f = 0, l = 0;
    sscanf(name.c_str(), "%u/%u/%u", &s, &f, &l);
    image = RenderSpriteFrame(sprite, sprite.sequences[s], static_cast<int>(f), l);
    return true;
  };
  return assetlib::BuildAnim(desc, images, "sprite " + sprite.name, out, error);
}

bool MakeBackground(const BackgroundRecipe& background, assetlib::TilOutput& out, std::string& error) {
  const assetlib::Image image = RenderBackground(background);
  assetlib::TilOptions options;
  options.format = assetlib::kFormat5551;
  return assetlib::BuildTil(image, options, "background " + background.name, out, error);
}

bool BuildArt(const ArtSet& set, const ArtOptions& options, ArtReport& report, soundgen::Diagnostics& diag) {
  const std::string animDir = options.titleDir + "/AnimData";
  const std::string levelDir = options.titleDir + "/Levels";
  std::error_code ec;
  fs::create_directories(animDir, ec);
  fs::create_directories(levelDir, ec);

  soundgen::BuildCache cache;
  if (!options.cachePath.empty()) cache.Load(options.cachePath);
  const uint64_t generator = GeneratorKey();

  std::vector<Job> jobs;
  std::set<std::string> wanted;
  auto plan = [&](Job job, const std::string& dir, const std::string& name, uint64_t fingerprint,
                  std::initializer_list<const char*> suffixes) {
    job.key = soundgen::Fnv64(std::to_string(fingerprint), generator);
    bool fresh = !options.cachePath.empty();
    for (const char* suffix : suffixes) {
      const std::string path = dir + "/" + name + suffix;
      wanted.insert(path);
      job.files.push_back({path, suffix});
      fresh = fresh && cache.UpToDate(path, job.key);
    }
    if (fresh) {
      ++report.upToDate;
    } else {
      jobs.push_back(job);
    }
  };
  for (const SpriteRecipe& s : set.sprites) {
    Job job;
    job.sprite = &s;
    plan(job, animDir, s.name, s.fingerprint, {".anim", ".tex"});
  }
  for (const BackgroundRecipe& b : set.backgrounds) {
    Job job;
    job.background = &b;
    plan(job, levelDir, b.name, b.fingerprint, {".til", "-tiled.tex"});
  }

  std::mutex mutex;
  std::atomic<size_t> next{0};
  size_t done = 0;
  auto work = [&]() {
    for (size_t i = next++; i < jobs.size(); i = next++) {
      const Job& job = jobs[i];
      std::string error, summary;
      std::vector<assetlib::Bytes> bytes;
      bool ok;
      if (job.sprite) {
        assetlib::AnimOutput out;
        ok = MakeSprite(*job.sprite, out, error);
        size_t frames = 0;
        for (const SequenceRecipe& seq : job.sprite->sequences) frames += static_cast<size_t>(seq.frames);
        char text[160];
        snprintf(text, sizeof text, "%zu frames, %s %ux%u", frames,
                 out.sheet ? "sheet" : "own textures, largest", out.sheetWidth, out.sheetHeight);
        summary = text;
        bytes = {std::move(out.anim), std::move(out.tex)};
      } else {
        assetlib::TilOutput out;
        ok = MakeBackground(*job.background, out, error);
        summary = std::to_string(out.columns) + "x" + std::to_string(out.rows) + " tiles, " +
                  std::to_string(out.storedTiles) + " stored";
        bytes = {std::move(out.index), std::move(out.data)};
      }
      size_t size = 0;
      for (size_t f = 0; ok && f < job.files.size(); ++f) {
        ok = WriteAtomically(job.files[f].first, bytes[f], error);
        size += bytes[f].size();
      }
      std::lock_guard<std::mutex> lock(mutex);
      ++done;
      const std::string& name = job.sprite ? job.sprite->name : job.background->name;
      if (!ok) {
        ++report.failed;
        const std::string& file = job.sprite ? job.sprite->file : job.background->file;
        const int line = job.sprite ? job.sprite->line : job.background->line;
        diag.Add(file, line, error);
        for (const auto& f : job.files) cache.Forget(f.first);
        continue;
      }
      ++report.made;
      report.bytes += size;
      for (const auto& f : job.files) cache.Record(f.first, job.key);
      if (!options.quiet) {
        printf("artgen: [%zu/%zu] %s: %s, %zu KB\n", done, jobs.size(), name.c_str(), summary.c_str(),
               (size + 1023) / 1024);
        fflush(stdout);
      }
    }
  };
  std::vector<std::thread> threads;
  const int count = std::max(1, std::min<int>(options.jobs, static_cast<int>(jobs.size())));
  for (int t = 1; t < count; ++t) threads.emplace_back(work);
  work();
  for (std::thread& t : threads) t.join();

  if (!options.cachePath.empty()) {
    for (const std::string& path : cache.Unwanted(wanted)) {
      fs::remove(path, ec);
      cache.Forget(path);
      ++report.removed;
    }
    if (!cache.Save()) diag.Add(options.cachePath, 0, "cannot write the cache");
  }
  return report.failed == 0 && diag.Empty();
}

}  // namespace artgen
