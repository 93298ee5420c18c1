#include "SoundBuilder.h"

#include <atomic>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <set>
#include <sstream>
#include <thread>

#include "AudioWriters.h"
#include "BuildCache.h"
#include "EffectSynth.h"
#include "MusicSynth.h"
#include "VoiceRenderer.h"

namespace soundgen {

namespace {

namespace fs = std::filesystem;

// Synthesised sounds change with the generator's code, so their keys include a digest of
// the generator itself. Voices don't: speaking them again takes the longest, and their
// sound depends on espeak-ng and sox, whose arguments kVoicePipelineVersion tracks.
std::string GeneratorDigest() {
  std::ifstream in("/proc/self/exe", std::ios::binary);
  std::stringstream bytes;
  bytes << in.rdbuf();
  char hex[17];
  snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(Fnv64(bytes.str())));
  return hex;
}

struct Target {
  Format format;
  std::string path;
  uint64_t key;
};

struct Job {
  std::string manifest;
  int line = 0;
  std::string what;  // "voice KDNA0001"
  std::vector<Target> targets;
  std::function<bool(std::vector<int16_t>&, std::string&)> render;
};

const char* Extension(Format f) {
  return f == Format::kOgg ? ".ogg" : ".wav";
}

void AddJob(std::vector<Job>& jobs, const Output& out, const std::string& what, const std::string& dir,
            const std::string& name, const std::string& salt,
            std::function<bool(std::vector<int16_t>&, std::string&)> render) {
  Job job;
  job.manifest = out.manifest;
  job.line = out.line;
  job.what = what;
  for (Format f : out.formats) {
    job.targets.push_back(
        Target{f, dir + "/" + name + Extension(f), Fnv64(out.fingerprint + "|" + Extension(f) + "|" + salt)});
  }
  job.render = std::move(render);
  jobs.push_back(std::move(job));
}

std::vector<Job> MakeJobs(const SoundSet& set, const BuildOptions& options) {
  const std::string digest = GeneratorDigest();
  const std::string voiceSalt = "voice-pipeline-" + std::to_string(kVoicePipelineVersion);
  const std::string dialogue = options.titleDir + "/Audio/Dialogue";
  const std::string sfx = options.titleDir + "/Audio/SFX";
  const std::string music = options.titleDir + "/Audio/Music";
  std::vector<Job> jobs;
  // Music first: the longest renders start early and the short ones fill in behind.
  for (const MusicRecipe& r : set.music) {
    AddJob(jobs, r.out, "music " + r.name, music, r.name, digest,
           [&r](std::vector<int16_t>& pcm, std::string&) {
             pcm = ToPcm16(RenderMusic(r));
             return true;
           });
  }
  for (const VoiceLine& v : set.voices) {
    const Speaker& speaker = set.speakers[v.speaker];
    AddJob(jobs, v.out, "voice " + v.id, dialogue, v.id, voiceSalt,
           [&v, &speaker](std::vector<int16_t>& pcm, std::string& error) {
             return RenderVoice(v.text, speaker, pcm, error);
           });
  }
  for (const EffectRecipe& r : set.effects) {
    AddJob(jobs, r.out, "effect " + r.name, sfx, r.name, digest,
           [&r](std::vector<int16_t>& pcm, std::string&) {
             pcm = ToPcm16(RenderEffect(r));
             return true;
           });
  }
  for (const EffectRecipe& r : set.stock) {
    AddJob(jobs, r.out, "stock sound " + r.name, options.stockDir, r.name, digest,
           [&r](std::vector<int16_t>& pcm, std::string&) {
             pcm = ToPcm16(RenderEffect(r));
             return true;
           });
  }
  return jobs;
}

std::string Shown(const std::string& path, const BuildOptions& options) {
  if (path.compare(0, options.titleDir.size() + 1, options.titleDir + "/") == 0) {
    return path.substr(options.titleDir.size() + 1);
  }
  return path;
}

}  // namespace

bool BuildSounds(const SoundSet& set, const BuildOptions& options, BuildReport& report, Diagnostics& diag) {
  std::error_code ec;
  for (const char* sub : {"/Audio/Dialogue", "/Audio/SFX", "/Audio/Music"}) {
    fs::create_directories(options.titleDir + sub, ec);
  }
  fs::create_directories(options.stockDir, ec);

  BuildCache cache;
  if (!options.cachePath.empty()) cache.Load(options.cachePath);
  std::vector<Job> jobs = MakeJobs(set, options);

  // Take out what is up to date; note every wanted file for the clean-up below.
  std::set<std::string> wanted;
  std::vector<Job*> todo;
  for (Job& job : jobs) {
    std::vector<Target> stale;
    for (const Target& t : job.targets) {
      wanted.insert(t.path);
      if (cache.UpToDate(t.path, t.key)) {
        ++report.upToDate;
      } else {
        stale.push_back(t);
      }
    }
    job.targets = stale;
    if (!stale.empty()) todo.push_back(&job);
  }
  for (const std::string& path : cache.Unwanted(wanted)) {
    if (fs::remove(path, ec)) {
      ++report.removed;
      if (!options.quiet) printf("soundgen: removed %s\n", Shown(path, options).c_str());
    }
    cache.Forget(path);
  }

  std::mutex lock;  // guards the cache, the report, diag and stdout
  std::atomic<size_t> next{0};
  size_t done = 0;
  auto worker = [&]() {
    for (size_t i = next++; i < todo.size(); i = next++) {
      Job& job = *todo[i];
      std::vector<int16_t> pcm;
      std::string error;
      bool ok = job.render(pcm, error);
      std::vector<const Target*> written;
      for (const Target& t : job.targets) {
        if (!ok) break;
        ok = t.format == Format::kOgg ? WriteOgg(t.path, pcm, error) : WriteImaWav(t.path, pcm, error);
        if (ok) written.push_back(&t);
      }
      std::lock_guard<std::mutex> hold(lock);
      ++done;
      for (const Target* t : written) {
        cache.Record(t->path, t->key);
        ++report.made;
        if (!options.quiet)
          printf("soundgen: [%zu/%zu] %s\n", done, todo.size(), Shown(t->path, options).c_str());
      }
      if (!ok) {
        ++report.failed;
        diag.Add(job.manifest, job.line, job.what + ": " + error);
      }
      fflush(stdout);
    }
  };
  const int threads = std::max(1, std::min<int>(options.jobs, static_cast<int>(todo.size())));
  std::vector<std::thread> pool;
  for (int t = 1; t < threads; ++t) pool.emplace_back(worker);
  worker();
  for (std::thread& t : pool) t.join();

  // Keep what was made even when something failed: the next run redoes only the rest.
  if (!options.cachePath.empty() && !cache.Save()) {
    diag.Add(options.cachePath, 0, "cannot write the build cache");
  }
  return report.failed == 0 && diag.Empty();
}

}  // namespace soundgen
