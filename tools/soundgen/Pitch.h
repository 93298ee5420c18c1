// Note names, keys and scales: the musical arithmetic shared by the effect and music
// recipes. MIDI note numbers throughout (C4 = 60, A4 = 69 = 440 Hz).
#pragma once
#include <string>

#include "Recipe.h"

namespace soundgen {

double MidiToHz(double midi);
// "C5", "F#4", "Bb3" (octave 0..8) -> MIDI note; false if not a note name.
bool ParseNoteName(const std::string& text, int& midi);
// "C", "F#", "Bb" -> pitch class 0..11; false if not a key name.
bool ParseKeyName(const std::string& text, int& pitchClass);
// The MIDI note of a 0-based scale degree (negative or above 6 for other octaves) of the
// key and mode, with `octave` the octave of degree 0 (tonic C in octave 4 is C4 = 60).
int DegreeToMidi(int keyPitch, Mode mode, int octave, int degree, int shift = 0);

}  // namespace soundgen
