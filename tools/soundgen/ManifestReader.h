// Reads and checks the four sound manifests of content/sounds into one SoundSet:
//
//   voices.json   { "speakers": { name: {voice, pitch, speed, gap} },
//                   "tables": { table: { id: "words" | {say, speaker, formats, about} } } }
//   effects.json  { "effects": { "SFX_...": effect recipe } }
//   stock.json    { "stock":   { "h_OSTM_..._6": effect recipe } }
//   music.json    { "music":   { "MUS_...": music recipe } }
//
// Every name must be unique over all four files: the game searches its audio directories
// as one list, so one name in two places would hide one of them. Problems are collected
// as "file:line: what is wrong", all of them, so that one build shows every mistake.
#pragma once
#include <map>
#include <string>

#include "JsonDoc.h"
#include "Recipe.h"

namespace soundgen {

enum class VoiceFamily {
  kInvalid,
  kNarrator,  // KDNA0123, KDNAVS0123, with an optional small letter: KDNA0108b
  kHeroine,   // KDME0123, KDMEVS0123
  kPlatform,  // lines of the platform's own families: CANA0062, SLNA0003, CANM100, PLCNA001
};
VoiceFamily ClassifyVoiceId(const std::string& id);

struct ManifestFiles {
  std::string voices, effects, stock, music;  // an empty path is skipped
};

class ManifestReader {
 public:
  explicit ManifestReader(Diagnostics& diag) : m_Diag(diag) {}

  void ReadVoices(const JsonDoc& doc);
  void ReadEffects(const JsonDoc& doc);
  void ReadStock(const JsonDoc& doc);
  void ReadMusic(const JsonDoc& doc);

  SoundSet& Set() { return m_Set; }

 private:
  // Registers `name` as used at `path` of `doc`; false, with a complaint, if it was
  // already used (`owner` tells where, e.g. "voice table M1Dialogue").
  bool Claim(const std::string& name, const JsonDoc& doc, const std::string& path, const std::string& owner);
  // The single top-level member `key` of a manifest as an object; null after a complaint.
  const Json* Section(const JsonDoc& doc, const char* key);
  void ReadSpeakers(const JsonDoc& doc, const Json& speakers);
  void ReadVoiceTable(const JsonDoc& doc, const std::string& table, const Json& entries);
  void ReadEffectSection(const JsonDoc& doc, const char* key, bool stock);

  struct Use {
    std::string where;  // "file:line"
    std::string owner;
  };
  Diagnostics& m_Diag;
  SoundSet m_Set;
  std::map<std::string, Use> m_Names;
  std::map<std::string, std::string> m_Melodies;  // melody text -> track, to keep tracks distinct
};

// Loads and reads the files named in `files`. False when anything was wrong; `diag` says what.
bool ReadManifests(const ManifestFiles& files, SoundSet& set, Diagnostics& diag);

class FieldReader;
// "formats": ["ogg", "wav"]; leaves `out` alone when the field is absent.
void ReadFormats(FieldReader& f, std::vector<Format>& out);

// Recipes (RecipeReader.cpp). Each reads the object at `path` and reports into `diag`.
bool ReadEffectRecipe(const JsonDoc& doc, const std::string& path, EffectRecipe& recipe, Diagnostics& diag);
bool ReadMusicRecipe(const JsonDoc& doc, const std::string& path, MusicRecipe& recipe, Diagnostics& diag);
// A melody such as "1 3 5 - | 6' - 5 ." (see content/README.md); false with `error` set.
bool ParseMelody(const std::string& text, int barSteps, std::vector<MelodyNote>& notes, int& steps,
                 std::string& error);

}  // namespace soundgen
