#include "Pitch.h"

#include <cctype>
#include <cmath>

namespace soundgen {

namespace {

const int kLetterPitch[7] = {9, 11, 0, 2, 4, 5, 7};  // A B C D E F G

// Semitones of the seven degrees above the tonic.
const int kScales[5][7] = {
    {0, 2, 4, 5, 7, 9, 11},  // major
    {0, 2, 3, 5, 7, 8, 10},  // natural minor
    {0, 2, 3, 5, 7, 9, 10},  // dorian
    {0, 2, 4, 5, 7, 9, 10},  // mixolydian
    {0, 2, 4, 6, 7, 9, 11},  // lydian
};

// Reads a letter with an optional '#' or 'b' from `text` at `pos`.
bool ParsePitchClass(const std::string& text, size_t& pos, int& pitchClass) {
  if (pos >= text.size()) return false;
  const char letter = static_cast<char>(toupper(static_cast<unsigned char>(text[pos])));
  if (letter < 'A' || letter > 'G') return false;
  int pc = kLetterPitch[letter - 'A'];
  ++pos;
  if (pos < text.size() && text[pos] == '#') {
    pc += 1;
    ++pos;
  } else if (pos < text.size() && text[pos] == 'b') {
    pc -= 1;
    ++pos;
  }
  pitchClass = (pc + 12) % 12;
  return true;
}

int FloorDiv(int a, int b) {
  return a >= 0 ? a / b : -((-a + b - 1) / b);
}

}  // namespace

double MidiToHz(double midi) {
  return 440.0 * std::pow(2.0, (midi - 69.0) / 12.0);
}

bool ParseNoteName(const std::string& text, int& midi) {
  size_t pos = 0;
  int pc = 0;
  if (!ParsePitchClass(text, pos, pc)) return false;
  if (pos + 1 != text.size() || text[pos] < '0' || text[pos] > '8') return false;
  const int octave = text[pos] - '0';
  // B#4 is C5 and Cb4 is B3: the letter's own octave decides, then the accidental moves.
  const int letterPc = kLetterPitch[toupper(static_cast<unsigned char>(text[0])) - 'A'];
  int delta = pc - letterPc;
  if (delta > 6) delta -= 12;
  if (delta < -6) delta += 12;
  midi = (octave + 1) * 12 + letterPc + delta;
  return true;
}

bool ParseKeyName(const std::string& text, int& pitchClass) {
  size_t pos = 0;
  return ParsePitchClass(text, pos, pitchClass) && pos == text.size();
}

int DegreeToMidi(int keyPitch, Mode mode, int octave, int degree, int shift) {
  const int octaves = FloorDiv(degree, 7);
  const int inScale = degree - octaves * 7;
  return (octave + 1 + octaves) * 12 + keyPitch + kScales[static_cast<int>(mode)][inScale] + shift;
}

}  // namespace soundgen
