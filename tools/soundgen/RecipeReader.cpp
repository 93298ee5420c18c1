// Reading of effect and music recipes; see content/README.md for the fields.
#include <cctype>
#include <sstream>

#include "FieldReader.h"
#include "ManifestReader.h"
#include "Pitch.h"

namespace soundgen {

namespace {

const double kMinHz = 20.0, kMaxHz = 7900.0;  // below the Nyquist limit of 16 kHz

// A pitch written as a note name ("C5", "F#4") or a frequency in Hz.
bool PitchValue(const Json& v, double& hz) {
  int midi = 0;
  if (v.is_string() && ParseNoteName(v.get<std::string>(), midi)) {
    hz = MidiToHz(midi);
  } else if (v.is_number()) {
    hz = v.get<double>();
  } else {
    return false;
  }
  return hz >= kMinHz && hz <= kMaxHz;
}

const char* const kPitchProblem =
    "must be a note name such as \"C5\" or \"F#4\", or a frequency from 20 to 7900 Hz";

void ReadLayer(const JsonDoc& doc, const std::string& path, const std::string& what, double effectLength,
               Layer& layer, Diagnostics& diag, bool& ok) {
  FieldReader f(doc, path, what,
                {"wave",   "note",    "notes",   "repeat",       "step",    "to",      "at",
                 "length", "attack",  "decay",   "sustain",      "release", "gain",    "ratio",
                 "index",  "indexTo", "vibrato", "vibratoDepth", "lowpass", "highpass"},
                diag);
  if (!f.IsObject()) {
    ok = false;
    return;
  }
  int wave = 0;
  f.Choice("wave", {"sine", "triangle", "square", "saw", "noise", "fm"}, wave, true);
  layer.wave = static_cast<Wave>(wave);

  double hz = 0.0;
  if (const Json* note = f.Get("note")) {
    if (PitchValue(*note, hz)) {
      layer.freqs.push_back(hz);
    } else {
      f.Complain("note", kPitchProblem);
    }
  }
  if (const Json* notes = f.Get("notes")) {
    if (f.Has("note")) f.Complain("notes", "and \"note\" exclude each other");
    if (!notes->is_array() || notes->empty() || notes->size() > 32) {
      f.Complain("notes", "must be a list of 1 to 32 notes");
    } else {
      for (const Json& n : *notes) {
        if (!PitchValue(n, hz)) {
          f.Complain("notes", std::string("has an entry that ") + kPitchProblem);
          break;
        }
        layer.freqs.push_back(hz);
      }
    }
    f.Number("step", 0.01, 2.0, layer.step, notes->is_array() && notes->size() > 1);
  }
  if (layer.freqs.empty()) {
    if (layer.wave != Wave::kNoise && f.Ok()) f.Complain(nullptr, "needs \"note\" or \"notes\"");
    layer.freqs.push_back(0.0);  // noise has no pitch
  }
  int repeat = 1;
  if (f.Int("repeat", 1, 32, repeat)) {
    if (f.Has("notes")) f.Complain("repeat", "and \"notes\" exclude each other");
    f.Number("step", 0.01, 2.0, layer.step, repeat > 1);
    layer.freqs.assign(repeat, layer.freqs[0]);
  }
  if (!f.Has("notes") && !f.Has("repeat") && f.Has("step")) {
    f.Complain("step", "needs \"notes\" or \"repeat\"");
  }
  if (const Json* to = f.Get("to")) {
    if (!PitchValue(*to, layer.glideTo)) f.Complain("to", kPitchProblem);
  }
  f.Number("at", 0.0, effectLength, layer.at);
  f.Number("length", 0.005, effectLength, layer.length);
  f.Number("attack", 0.0, 5.0, layer.attack);
  f.Number("decay", 0.0, 5.0, layer.decay);
  f.Number("sustain", 0.0, 1.0, layer.sustain);
  f.Number("release", 0.0, 5.0, layer.release);
  f.Number("gain", 0.0, 1.0, layer.gain);
  f.Number("ratio", 0.1, 16.0, layer.fmRatio);
  f.Number("index", 0.0, 20.0, layer.fmIndex);
  f.Number("indexTo", 0.0, 20.0, layer.fmIndexTo);
  f.Number("vibrato", 0.0, 40.0, layer.vibratoRate);
  f.Number("vibratoDepth", 0.0, 2.0, layer.vibratoDepth);
  f.Number("lowpass", kMinHz, kMaxHz, layer.lowpass);
  f.Number("highpass", kMinHz, kMaxHz, layer.highpass);
  if (layer.wave != Wave::kFm && (f.Has("ratio") || f.Has("index") || f.Has("indexTo"))) {
    f.Complain(f.Has("ratio")   ? "ratio"
               : f.Has("index") ? "index"
                                : "indexTo",
               "belongs to the \"fm\" wave only");
  }
  const double lastStart = layer.at + layer.step * (layer.freqs.size() - 1);
  if (f.Ok() && lastStart >= effectLength) {
    f.Complain(nullptr, "starts its last note at " + FormatNumber(lastStart) +
                            " s, after the end of the effect (" + FormatNumber(effectLength) + " s)");
  }
  ok = ok && f.Ok();
}

int ParseChord(const std::string& token) {
  static const char* const kRoman[7] = {"i", "ii", "iii", "iv", "v", "vi", "vii"};
  std::string lower;
  for (char c : token) lower += static_cast<char>(tolower(static_cast<unsigned char>(c)));
  for (int i = 0; i < 7; ++i) {
    if (lower == kRoman[i] || lower == std::to_string(i + 1)) return i;
  }
  return -1;
}

}  // namespace

bool ReadEffectRecipe(const JsonDoc& doc, const std::string& path, EffectRecipe& recipe, Diagnostics& diag) {
  const std::string what = "effect " + recipe.name;
  FieldReader f(doc, path, what, {"length", "level", "echo", "layers", "formats", "about"}, diag);
  if (!f.IsObject()) return false;
  f.Number("length", 0.02, 6.0, recipe.length, true);
  f.Number("level", 0.05, 1.0, recipe.level);
  ReadFormats(f, recipe.out.formats);
  bool ok = f.Ok();
  if (f.Has("echo")) {
    FieldReader echo(doc, f.PathOf("echo"), what + " echo", {"delay", "feedback"}, diag);
    echo.Number("delay", 0.02, 1.0, recipe.echoDelay, true);
    echo.Number("feedback", 0.0, 0.8, recipe.echoFeedback, true);
    ok = ok && echo.Ok();
  }
  const Json* layers = f.Get("layers");
  if (!layers || !layers->is_array() || layers->empty() || layers->size() > 16) {
    f.Complain(layers ? "layers" : nullptr,
               layers ? "must be a list of 1 to 16 layers" : "needs \"layers\": [ ... ]");
    return false;
  }
  for (size_t i = 0; i < layers->size(); ++i) {
    Layer layer;
    ReadLayer(doc, JoinPath(f.PathOf("layers"), std::to_string(i)), what + " layer " + std::to_string(i + 1),
              recipe.length, layer, diag, ok);
    recipe.layers.push_back(layer);
  }
  return ok;
}

bool ParseMelody(const std::string& text, int barSteps, std::vector<MelodyNote>& notes, int& steps,
                 std::string& error) {
  notes.clear();
  steps = 0;
  std::istringstream in(text);
  std::string token;
  int index = 0, barStart = 0, bar = 1;
  while (in >> token) {
    ++index;
    if (token == "|") {
      if (steps - barStart != barSteps) {
        error = "bar " + std::to_string(bar) + " has " + std::to_string(steps - barStart) + " steps, not " +
                std::to_string(barSteps);
        return false;
      }
      barStart = steps;
      ++bar;
      continue;
    }
    ++steps;
    if (token == "-") {
      if (notes.empty()) {
        error = "it starts with '-', which holds the note before";
        return false;
      }
      ++notes.back().steps;
      continue;
    }
    MelodyNote note;
    if (token == ".") {
      note.rest = true;
      notes.push_back(note);
      continue;
    }
    size_t pos = 0;
    if (token[pos] == '#' || token[pos] == 'b') note.shift = token[pos++] == '#' ? 1 : -1;
    bool ok = pos < token.size() && token[pos] >= '1' && token[pos] <= '7';
    if (ok) note.degree = token[pos++] - '1';
    for (; ok && pos < token.size(); ++pos) {
      if (token[pos] == '\'') {
        note.degree += 7;
      } else if (token[pos] == ',') {
        note.degree -= 7;
      } else {
        ok = false;
      }
    }
    if (!ok) {
      error = "token " + std::to_string(index) + " \"" + token +
              "\" is not a degree 1-7 (with # or b before, ' or , after), '-' or '.'";
      return false;
    }
    notes.push_back(note);
  }
  if (steps == 0) {
    error = "it has no notes";
    return false;
  }
  return true;
}

bool ReadMusicRecipe(const JsonDoc& doc, const std::string& path, MusicRecipe& recipe, Diagnostics& diag) {
  const std::string what = "music " + recipe.name;
  FieldReader f(doc, path, what,
                {"key", "mode", "tempo", "meter", "steps", "bars", "chords", "melody", "lead", "bass", "pad",
                 "bassPattern", "drums", "octave", "mix", "level", "about"},
                diag);
  if (!f.IsObject()) return false;
  std::string key;
  if (f.String("key", key, true) && !ParseKeyName(key, recipe.keyPitch)) {
    f.Complain("key", "must be a key such as \"C\", \"F#\" or \"Bb\"");
  }
  int choice = 0;
  if (f.Choice("mode", {"major", "minor", "dorian", "mixolydian", "lydian"}, choice)) {
    recipe.mode = static_cast<Mode>(choice);
  }
  f.Number("tempo", 50.0, 200.0, recipe.tempo, true);
  f.Int("meter", 2, 6, recipe.meter);
  f.Int("steps", 1, 4, recipe.stepsPerBeat);
  f.Int("bars", 2, 64, recipe.bars, true);
  const std::vector<std::string> instruments = {"flute",    "bell",    "pluck", "reed", "whistle",
                                                "softbass", "strings", "choir", "organ"};
  if (f.Choice("lead", instruments, choice)) recipe.lead = static_cast<Instrument>(choice);
  if (f.Choice("bass", instruments, choice)) recipe.bass = static_cast<Instrument>(choice);
  if (f.Choice("pad", instruments, choice)) recipe.pad = static_cast<Instrument>(choice);
  if (f.Choice("bassPattern", {"root", "rootfifth", "walk", "arpeggio"}, choice)) {
    recipe.bassPattern = static_cast<BassPattern>(choice);
  }
  if (f.Choice("drums", {"none", "soft", "march", "shaker"}, choice))
    recipe.drums = static_cast<Drums>(choice);
  f.Int("octave", 3, 6, recipe.leadOctave);
  f.Number("level", 0.1, 1.0, recipe.level);
  if (f.Has("mix")) {
    FieldReader mix(doc, f.PathOf("mix"), what + " mix", {"lead", "bass", "pad", "drums"}, diag);
    mix.Number("lead", 0.0, 1.0, recipe.leadGain);
    mix.Number("bass", 0.0, 1.0, recipe.bassGain);
    mix.Number("pad", 0.0, 1.0, recipe.padGain);
    mix.Number("drums", 0.0, 1.0, recipe.drumGain);
    if (!mix.Ok()) f.Complain(nullptr, "has a bad mix");
  }

  std::string chords;
  if (f.String("chords", chords, true)) {
    std::istringstream in(chords);
    std::string token;
    while (in >> token) {
      const int degree = ParseChord(token);
      if (degree < 0) {
        f.Complain("chords", "has \"" + token + "\", which is not a chord I-VII (or 1-7)");
        break;
      }
      recipe.chords.push_back(degree);
    }
    if (recipe.chords.empty()) f.Complain("chords", "needs at least one chord");
  }
  std::string melody, error;
  if (f.String("melody", melody, true) &&
      !ParseMelody(melody, recipe.meter * recipe.stepsPerBeat, recipe.melody, recipe.melodySteps, error)) {
    f.Complain("melody", "is wrong: " + error);
  }
  if (!f.Ok()) return false;

  const int totalSteps = recipe.bars * recipe.meter * recipe.stepsPerBeat;
  if (totalSteps % recipe.melodySteps != 0) {
    f.Complain("melody", "has " + std::to_string(recipe.melodySteps) + " steps, which do not divide the " +
                             std::to_string(totalSteps) + " steps of the track");
  }
  if (recipe.Seconds() < 20.0 || recipe.Seconds() > 40.0) {
    f.Complain(nullptr, "lasts " + FormatNumber(recipe.Seconds()) +
                            " s; a track loops after 20 to 40 s (change \"bars\" or \"tempo\")");
  }
  return f.Ok();
}

}  // namespace soundgen
