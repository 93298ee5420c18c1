// What the host tells the audio module about where its output goes. Not part of the
// application's interface: only appmanager, tests and benchmarks call these.
//
// Two ways of running:
// - Device: a windowed, unmuted run plays through the machine's sound device (SDL2); the
//   device asks for samples on its own thread and Update does nothing.
// - On demand: headless or muted runs (and any run before Configure) have no device.
//   Update mixes exactly the samples for the time the platform clock moved since the
//   previous call, so with the virtual clock a run's sound is the same on every run,
//   to the sample. The done messages of that mix are delivered (on the module's thread)
//   before Update returns, so the game sees them at a fixed frame.
// Either way the mix can also be written to a 16-bit stereo WAV file at kOutputRate.
//
// appmanager's order of calls:
//   SetHostConfig(config);                        // clock first: Configure reads it
//   HostAudio::Configure(wavPath, mute, headless, error);
//   app->Enter();
//   each frame: Clock::AdvanceFrame(); HostAudio::Update(); app->Update(); ...
//   app->Exit(); app.reset();
//   HostAudio::Shutdown();                        // before Window::Close (it quits SDL)
#pragma once
#include <string>

#include "ostra/PlatformTypes.h"

namespace Hollin {
namespace Ostra {
namespace HostAudio {

const U32 kOutputRate = 32000;  // Hz, stereo, signed 16-bit, in every mode

// Chooses the output. `outputWavPath` empty: no file. `mute`: no device even with a
// window. `headless`: no device. False with a one-line `error` when the WAV file cannot
// be created or the device cannot be opened; the module then runs on demand without
// that output, and the run can go on. Calling it again first shuts the old output down.
bool Configure(const std::string& outputWavPath, bool mute, bool headless, std::string& error);

// On demand: mixes up to the platform clock and delivers the done messages that came of
// it. A clock that went back (SetHostConfig resets it) starts counting again from there.
void Update();

// On demand: mixes `ms` ms at once, whatever the clock says (tests and benchmarks; do not
// mix this with Update in one run).
void MixMilliseconds(U32 ms);

// True when the device plays the output.
bool IsDeviceOutput();

// Stops every sound (done messages included), closes the device and finishes the WAV
// file. The module goes back to on-demand mode with no output.
void Shutdown();

}  // namespace HostAudio
}  // namespace Ostra
}  // namespace Hollin
