// What the sound manifests describe, after reading and checking: voice lines with their
// speakers, synthesised effects (also the platform's stock sounds) and music tracks.
// Plain data; ManifestReader fills it, the synthesisers and VoiceRenderer read it.
//
// All times are seconds, frequencies Hz, levels linear 0..1.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

namespace soundgen {

const int kSampleRate = 16000;  // every sound of the title: the game plays memory sounds at this rate

enum class Format { kOgg, kWav };  // ".ogg" Vorbis (streamed), ".wav" IMA ADPCM (memory sounds)

struct Output {
  std::vector<Format> formats;
  std::string manifest;  // file and line of the entry, for messages at render time
  int line = 0;
  // Canonical text of everything the sound is made from; the build cache remakes the
  // files when it changes.
  std::string fingerprint;
};

// ---- Voices

struct Speaker {
  std::string name;   // "narrator", "heroine", ...
  std::string voice;  // espeak-ng voice with variant, e.g. "en-gb+f2"
  int pitch = 50;     // espeak-ng -p, 0..99
  int speed = 150;    // espeak-ng -s, words per minute
  int wordGap = 0;    // espeak-ng -g, units of 10 ms
};

struct VoiceLine {
  std::string id;  // "KDNA0662"
  std::string text;
  std::string table;  // the voice table it belongs to, e.g. "M1Dialogue"
  int speaker = -1;   // index into SoundSet::speakers
  Output out;
};

// ---- Effects

enum class Wave { kSine, kTriangle, kSquare, kSaw, kNoise, kFm };

// One voice of an effect: a tone (or noise) with a pitch glide and an ADSR envelope,
// optionally repeated as a run of notes.
struct Layer {
  Wave wave = Wave::kSine;
  std::vector<double> freqs;  // one note, or a run of notes `step` apart
  double step = 0.0;
  double glideTo = 0.0;  // end frequency of each note's glide, 0 = none (exponential glide)
  double at = 0.0;       // start time in the effect
  double length = 0.0;   // of each note including its release; 0 = to the end of the effect
  double attack = 0.005, decay = 0.1, sustain = 0.6, release = 0.05;
  double gain = 1.0;
  double fmRatio = 2.0, fmIndex = 0.0, fmIndexTo = -1.0;  // kFm: modulator ratio, index (-1 = constant)
  double vibratoRate = 0.0, vibratoDepth = 0.0;           // Hz, semitones
  double lowpass = 0.0, highpass = 0.0;                   // one-pole filters, 0 = off
};

struct EffectRecipe {
  std::string name;
  double length = 0.3;
  double level = 0.7;  // peak after normalisation
  double echoDelay = 0.0, echoFeedback = 0.0;
  std::vector<Layer> layers;
  Output out;
};

// ---- Music

enum class Mode { kMajor, kMinor, kDorian, kMixolydian, kLydian };
enum class Instrument { kFlute, kBell, kPluck, kReed, kWhistle, kSoftBass, kStrings, kChoir, kOrgan };
enum class BassPattern { kRoot, kRootFifth, kWalk, kArpeggio };
enum class Drums { kNone, kSoft, kMarch, kShaker };

// One step of a melody: a scale degree (0-based, may exceed 6 or be negative for other
// octaves) with a chromatic shift, held for `steps` steps; rests have `rest` set.
struct MelodyNote {
  int degree = 0;
  int shift = 0;  // semitones: '#' +1, 'b' -1
  int steps = 1;
  bool rest = false;
};

struct MusicRecipe {
  std::string name;
  int keyPitch = 0;  // pitch class of the tonic, C = 0
  Mode mode = Mode::kMajor;
  double tempo = 100.0;  // beats a minute
  int meter = 4;         // beats a bar
  int stepsPerBeat = 2;  // melody resolution
  int bars = 12;
  std::vector<int> chords;  // 0-based scale degree of each bar's triad, cycled over the bars
  std::vector<MelodyNote> melody;
  int melodySteps = 0;  // total length of `melody`, cycled over the bars
  Instrument lead = Instrument::kFlute, bass = Instrument::kSoftBass, pad = Instrument::kStrings;
  BassPattern bassPattern = BassPattern::kRootFifth;
  Drums drums = Drums::kNone;
  int leadOctave = 5;
  double leadGain = 0.5, bassGain = 0.35, padGain = 0.18, drumGain = 0.2;
  double level = 0.6;
  Output out;

  double Seconds() const { return bars * meter * 60.0 / tempo; }
};

// ---- Everything

struct SoundSet {
  std::vector<Speaker> speakers;
  std::vector<VoiceLine> voices;
  std::vector<EffectRecipe> effects;
  std::vector<EffectRecipe> stock;
  std::vector<MusicRecipe> music;
};

}  // namespace soundgen
