#include "ManifestReader.h"

#include <algorithm>
#include <regex>

#include "FieldReader.h"

namespace soundgen {

VoiceFamily ClassifyVoiceId(const std::string& id) {
  static const std::regex narrator("KDNA(VS)?[0-9]{4}[a-z]?");
  static const std::regex heroine("KDME(VS)?[0-9]{4}");
  static const std::regex platform("(CANA|SLNA)[0-9]{4}|(CANM|CANE|PLCNA|PLCMD)[0-9]{3}");
  if (std::regex_match(id, narrator)) return VoiceFamily::kNarrator;
  if (std::regex_match(id, heroine)) return VoiceFamily::kHeroine;
  if (std::regex_match(id, platform)) return VoiceFamily::kPlatform;
  return VoiceFamily::kInvalid;
}

namespace {

// The entry as the sound depends on it: descriptions ("about") don't count.
std::string Canonical(const Json& entry) {
  if (!entry.is_object()) return entry.dump();
  Json copy = entry;
  copy.erase("about");
  return copy.dump();
}

std::string FormatsText(const std::vector<Format>& formats) {
  std::string s;
  for (Format f : formats) s += f == Format::kOgg ? "ogg," : "wav,";
  return s;
}

}  // namespace

void ReadFormats(FieldReader& f, std::vector<Format>& out) {
  const Json* v = f.Get("formats");
  if (!v) return;
  std::vector<Format> formats;
  bool ok = v->is_array() && !v->empty();
  for (size_t i = 0; ok && i < v->size(); ++i) {
    const Json& e = (*v)[i];
    const Format format = e == "ogg" ? Format::kOgg : Format::kWav;
    ok = (e == "ogg" || e == "wav") && std::find(formats.begin(), formats.end(), format) == formats.end();
    formats.push_back(format);
  }
  if (!ok) {
    f.Complain("formats", "must list \"ogg\" and/or \"wav\", each once");
    return;
  }
  out = formats;
}

namespace {

bool IsTableName(const std::string& name) {
  static const std::regex pattern("[A-Za-z][A-Za-z0-9_]*");
  return std::regex_match(name, pattern);
}

}  // namespace

bool ManifestReader::Claim(const std::string& name, const JsonDoc& doc, const std::string& path,
                           const std::string& owner) {
  const std::string where = doc.File() + ":" + std::to_string(doc.LineOf(path));
  auto it = m_Names.find(name);
  if (it != m_Names.end()) {
    doc.Complain(m_Diag, path,
                 "\"" + name + "\" is already in " + it->second.owner + " (" + it->second.where + ")");
    return false;
  }
  m_Names[name] = Use{where, owner};
  return true;
}

const Json* ManifestReader::Section(const JsonDoc& doc, const char* key) {
  const Json& root = doc.Root();
  if (!root.is_object()) {
    doc.Complain(m_Diag, "", std::string("the file must be an object { \"") + key + "\": { ... } }");
    return nullptr;
  }
  for (auto it = root.begin(); it != root.end(); ++it) {
    if (it.key() != key) {
      doc.Complain(m_Diag, JoinPath("", it.key()),
                   "unknown section \"" + it.key() + "\" (this file holds \"" + key + "\")");
    }
  }
  auto it = root.find(key);
  if (it == root.end() || !it->is_object()) {
    doc.Complain(m_Diag, JoinPath("", key), std::string("needs the section \"") + key + "\": { ... }");
    return nullptr;
  }
  return &*it;
}

// ---- Voices

void ManifestReader::ReadVoices(const JsonDoc& doc) {
  FieldReader top(doc, "", "the voice manifest", {"speakers", "tables"}, m_Diag);
  if (!top.IsObject()) return;
  const Json* speakers = top.Get("speakers");
  const Json* tables = top.Get("tables");
  if (!speakers || !speakers->is_object()) top.Complain("speakers", "must be an object of speakers");
  if (!tables || !tables->is_object()) top.Complain("tables", "must be an object of voice tables");
  if (!top.Ok()) return;
  ReadSpeakers(doc, *speakers);
  for (auto it = tables->begin(); it != tables->end(); ++it) {
    const std::string path = JoinPath("/tables", it.key());
    if (!IsTableName(it.key())) {
      doc.Complain(m_Diag, path, "\"" + it.key() + "\" is not a table name (letters, digits and _)");
    } else if (!it->is_object()) {
      doc.Complain(m_Diag, path, "voice table " + it.key() + " must be an object { id: words, ... }");
    } else {
      ReadVoiceTable(doc, it.key(), *it);
    }
  }
}

void ManifestReader::ReadSpeakers(const JsonDoc& doc, const Json& speakers) {
  static const std::regex voicePattern("[A-Za-z0-9_+-]+");
  for (auto it = speakers.begin(); it != speakers.end(); ++it) {
    const std::string path = JoinPath("/speakers", it.key());
    FieldReader f(doc, path, "speaker " + it.key(), {"voice", "pitch", "speed", "gap", "about"}, m_Diag);
    Speaker s;
    s.name = it.key();
    if (f.String("voice", s.voice, true) && !std::regex_match(s.voice, voicePattern)) {
      f.Complain("voice", "is not an espeak-ng voice name such as \"en-gb+f2\"");
    }
    f.Int("pitch", 0, 99, s.pitch);
    f.Int("speed", 80, 450, s.speed);
    f.Int("gap", 0, 50, s.wordGap);
    if (f.Ok()) m_Set.speakers.push_back(s);
  }
}

void ManifestReader::ReadVoiceTable(const JsonDoc& doc, const std::string& table, const Json& entries) {
  for (auto it = entries.begin(); it != entries.end(); ++it) {
    const std::string& id = it.key();
    const std::string path = JoinPath(JoinPath("/tables", table), id);
    const VoiceFamily family = ClassifyVoiceId(id);
    if (family == VoiceFamily::kInvalid) {
      doc.Complain(m_Diag, path,
                   "\"" + id +
                       "\" is not a voice id: narrator KDNA or KDNAVS and 4 digits (and maybe a small "
                       "letter), heroine KDME or KDMEVS and 4 digits, platform CANA/SLNA and 4 digits or "
                       "CANM/CANE/PLCNA/PLCMD and 3 digits");
      continue;
    }
    if (!Claim(id, doc, path, "voice table " + table)) continue;

    VoiceLine line;
    line.id = id;
    line.table = table;
    line.out.manifest = doc.File();
    line.out.line = doc.LineOf(path);
    std::string speaker = family == VoiceFamily::kHeroine ? "heroine" : "narrator";
    line.out.formats = {Format::kOgg};
    // The heroine's lines are also played from memory while her lips move.
    if (family == VoiceFamily::kHeroine) line.out.formats.push_back(Format::kWav);

    const std::string what = "voice " + id;
    bool ok = true;
    if (it->is_string()) {
      line.text = it->get<std::string>();
    } else if (!it->is_object()) {
      doc.Complain(m_Diag, path, what + ": must be the words in quotes, or { \"say\": \"...\" }");
      continue;
    } else {
      FieldReader f(doc, path, what, {"say", "speaker", "formats", "about"}, m_Diag);
      f.String("say", line.text, true);
      if (f.String("speaker", speaker)) {
        if (family == VoiceFamily::kHeroine && speaker != "heroine") {
          f.Complain("speaker", "is \"" + speaker + "\", but " + id + " is a heroine id (KDME...)");
        } else if (family != VoiceFamily::kHeroine && speaker == "heroine") {
          f.Complain("speaker", "is \"heroine\", but her lines have ids KDME... or KDMEVS...");
        }
      }
      ReadFormats(f, line.out.formats);
      ok = f.Ok();
    }

    // espeak-ng would take a leading '-' as an option; control characters have no place
    // in spoken words.
    bool printable = true;
    for (unsigned char c : line.text) printable = printable && (c >= 0x20 || c == '\t') && c != 0x7f;
    if (ok && (line.text.empty() || line.text[0] == '-' || !printable || line.text.size() > 300)) {
      doc.Complain(m_Diag, path,
                   what + ": the words must be 1 to 300 printable characters, not starting with '-'");
      ok = false;
    }
    for (size_t i = 0; ok && i <= m_Set.speakers.size(); ++i) {
      if (i == m_Set.speakers.size()) {
        doc.Complain(m_Diag, path, what + ": no speaker \"" + speaker + "\" in \"speakers\"");
        ok = false;
      } else if (m_Set.speakers[i].name == speaker) {
        line.speaker = static_cast<int>(i);
        break;
      }
    }
    if (!ok) continue;
    const Speaker& s = m_Set.speakers[line.speaker];
    line.out.fingerprint = "voice|" + Canonical(*it) + "|" + FormatsText(line.out.formats) + "|" + s.voice +
                           "|" + std::to_string(s.pitch) + "|" + std::to_string(s.speed) + "|" +
                           std::to_string(s.wordGap);
    m_Set.voices.push_back(line);
  }
}

// ---- Effects, stock sounds, music

void ManifestReader::ReadEffectSection(const JsonDoc& doc, const char* key, bool stock) {
  const Json* section = Section(doc, key);
  if (!section) return;
  static const std::regex effectName("SFX_[A-Za-z0-9_]+");
  static const std::regex stockName("[hL]_OSTM_[A-Za-z0-9_]+_6");
  for (auto it = section->begin(); it != section->end(); ++it) {
    const std::string& name = it.key();
    const std::string path = JoinPath(JoinPath("", key), name);
    if (!std::regex_match(name, stock ? stockName : effectName)) {
      doc.Complain(m_Diag, path,
                   "\"" + name + "\" is not " +
                       (stock ? "a stock sound name (h_OSTM_..._6 or L_OSTM_..._6)"
                              : "an effect name (SFX_ and letters, digits or _)"));
      continue;
    }
    if (!Claim(name, doc, path, stock ? "the stock sounds" : "the effects")) continue;
    EffectRecipe recipe;
    recipe.name = name;
    recipe.out.manifest = doc.File();
    recipe.out.line = doc.LineOf(path);
    // Streamed or memory sound is not known for most effects: both are made. Stock sounds
    // are only ever streamed.
    recipe.out.formats =
        stock ? std::vector<Format>{Format::kOgg} : std::vector<Format>{Format::kOgg, Format::kWav};
    if (!ReadEffectRecipe(doc, path, recipe, m_Diag)) continue;
    recipe.out.fingerprint = std::string(key) + "|" + Canonical(*it) + "|" + FormatsText(recipe.out.formats);
    (stock ? m_Set.stock : m_Set.effects).push_back(recipe);
  }
}

void ManifestReader::ReadEffects(const JsonDoc& doc) {
  ReadEffectSection(doc, "effects", false);
}
void ManifestReader::ReadStock(const JsonDoc& doc) {
  ReadEffectSection(doc, "stock", true);
}

void ManifestReader::ReadMusic(const JsonDoc& doc) {
  const Json* section = Section(doc, "music");
  if (!section) return;
  static const std::regex musicName("MUS_[A-Za-z0-9_]+");
  for (auto it = section->begin(); it != section->end(); ++it) {
    const std::string& name = it.key();
    const std::string path = JoinPath("/music", name);
    if (!std::regex_match(name, musicName)) {
      doc.Complain(m_Diag, path, "\"" + name + "\" is not a track name (MUS_ and letters, digits or _)");
      continue;
    }
    if (!Claim(name, doc, path, "the music")) continue;
    MusicRecipe recipe;
    recipe.name = name;
    recipe.out.manifest = doc.File();
    recipe.out.line = doc.LineOf(path);
    recipe.out.formats = {Format::kOgg};
    if (!ReadMusicRecipe(doc, path, recipe, m_Diag)) continue;
    const std::string melody = it->value("melody", std::string());
    auto same = m_Melodies.find(melody);
    if (same != m_Melodies.end()) {
      doc.Complain(m_Diag, JoinPath(path, "melody"),
                   "music " + name + ": the same melody as " + same->second + "; each track needs its own");
      continue;
    }
    m_Melodies[melody] = name;
    recipe.out.fingerprint = "music|" + Canonical(*it);
    m_Set.music.push_back(recipe);
  }
}

bool ReadManifests(const ManifestFiles& files, SoundSet& set, Diagnostics& diag) {
  ManifestReader reader(diag);
  JsonDoc doc;
  if (!files.voices.empty() && doc.Load(files.voices, diag)) reader.ReadVoices(doc);
  if (!files.effects.empty() && doc.Load(files.effects, diag)) reader.ReadEffects(doc);
  if (!files.stock.empty() && doc.Load(files.stock, diag)) reader.ReadStock(doc);
  if (!files.music.empty() && doc.Load(files.music, diag)) reader.ReadMusic(doc);
  set = reader.Set();
  return diag.Empty();
}

}  // namespace soundgen
