#include "input/InputScript.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "input/InputState.h"
#include "ostra/ButtonMPI.h"

namespace Hollin {
namespace Ostra {
namespace {

const S32 kWidth = 480;
const S32 kHeight = 272;
const S32 kLastPosition = -1;  // a release where the touch last was

struct ButtonName {
  const char* name;
  U32 bit;
};

const ButtonName kButtonNames[] = {
    {"up", kButtonUp},
    {"down", kButtonDown},
    {"right", kButtonRight},
    {"left", kButtonLeft},
    {"a", kButtonA},
    {"b", kButtonB},
    {"lshoulder", kButtonLeftShoulder},
    {"rshoulder", kButtonRightShoulder},
    {"home", kButtonHome},
    {"hint", kButtonHint},
    {"pause", kButtonPause},
    {"extra", kButtonExtra},
};

bool ParseInt(const std::string& word, long min, long max, long& out) {
  if (word.empty()) return false;
  errno = 0;
  char* end = nullptr;
  long value = strtol(word.c_str(), &end, 10);
  if (errno != 0 || *end != '\0' || value < min || value > max) return false;
  out = value;
  return true;
}

bool ParseButton(const std::string& word, U32& bits) {
  for (const ButtonName& b : kButtonNames) {
    if (word == b.name) {
      bits |= b.bit;
      return true;
    }
  }
  if (word.size() > 2 && word[0] == '0' && word[1] == 'x') {
    char* end = nullptr;
    unsigned long value = strtoul(word.c_str() + 2, &end, 16);
    if (*end == '\0' && value != 0 && value <= 0xFFFFFFFFul) {
      bits |= static_cast<U32>(value);
      return true;
    }
  }
  return false;
}

// One line's worth of parsing; `error` is the reason without the place.
class LineParser {
 public:
  LineParser(const std::vector<std::string>& words, std::vector<ScriptEvent>& out)
      : m_Words(words), m_Out(out) {}

  bool Run(std::string& error);

 private:
  bool Count(size_t n, const char* usage, std::string& error) {
    if (m_Words.size() == n + 2) return true;
    error = std::string("expected \"") + usage + "\"";
    return false;
  }
  bool Point(size_t i, S32& x, S32& y, std::string& error) {
    long lx, ly;
    if (!ParseInt(m_Words[i], 0, kWidth - 1, lx) || !ParseInt(m_Words[i + 1], 0, kHeight - 1, ly)) {
      error = "position " + m_Words[i] + " " + m_Words[i + 1] + " is not within 0..479, 0..271";
      return false;
    }
    x = static_cast<S32>(lx);
    y = static_cast<S32>(ly);
    return true;
  }
  bool Frames(size_t i, S32& n, std::string& error) {
    long value;
    if (!ParseInt(m_Words[i], 1, 1000000, value)) {
      error = "frame count '" + m_Words[i] + "' is not a number from 1 to 1000000";
      return false;
    }
    n = static_cast<S32>(value);
    return true;
  }
  void Add(U32 frame, ScriptEvent::Kind kind, S32 a = 0, S32 b = 0, S32 c = 0) {
    m_Out.push_back(ScriptEvent{frame, kind, a, b, c});
  }
  void Touch(U32 frame, S32 state, S32 x, S32 y) { Add(frame, ScriptEvent::kTouch, state, x, y); }

  const std::vector<std::string>& m_Words;
  std::vector<ScriptEvent>& m_Out;
};

bool LineParser::Run(std::string& error) {
  long frameValue;
  if (!ParseInt(m_Words[0], 0, 0x7FFFFFFF, frameValue)) {
    error = "'" + m_Words[0] + "' is not a frame number";
    return false;
  }
  if (m_Words.size() < 2) {
    error = "a command must follow the frame number";
    return false;
  }
  const U32 f = static_cast<U32>(frameValue);
  const std::string& cmd = m_Words[1];
  const S32 down = InputState::kTouchPressed;
  S32 x, y, x2, y2, n;
  if (cmd == "tap") {
    if (!Count(2, "FRAME tap X Y", error) || !Point(2, x, y, error)) return false;
    Touch(f, down, x, y);
    Touch(f + 1, 0, x, y);
  } else if (cmd == "press" || cmd == "move") {
    if (!Count(2, "FRAME press|move X Y", error) || !Point(2, x, y, error)) return false;
    Touch(f, down, x, y);
  } else if (cmd == "release") {
    if (!Count(0, "FRAME release", error)) return false;
    Touch(f, 0, kLastPosition, kLastPosition);
  } else if (cmd == "hold") {
    if (!Count(3, "FRAME hold X Y FRAMES", error) || !Point(2, x, y, error) || !Frames(4, n, error))
      return false;
    Touch(f, down, x, y);
    Touch(f + n, 0, x, y);
  } else if (cmd == "drag") {
    if (!Count(5, "FRAME drag X1 Y1 X2 Y2 FRAMES", error) || !Point(2, x, y, error) ||
        !Point(4, x2, y2, error) || !Frames(6, n, error)) {
      return false;
    }
    for (S32 k = 0; k <= n; ++k) Touch(f + k, down, x + (x2 - x) * k / n, y + (y2 - y) * k / n);
    Touch(f + n, 0, x2, y2);
  } else if (cmd == "tilt") {
    long t[3];
    if (!Count(3, "FRAME tilt X Y Z", error)) return false;
    for (int i = 0; i < 3; ++i) {
      if (!ParseInt(m_Words[2 + i], -8, 8, t[i])) {
        error = "tilt '" + m_Words[2 + i] + "' is not a number from -8 to 8";
        return false;
      }
    }
    Add(f, ScriptEvent::kTilt, t[0], t[1], t[2]);
  } else if (cmd == "down" || cmd == "up") {
    if (m_Words.size() < 3) {
      error = "expected \"FRAME " + cmd + " BUTTON...\"";
      return false;
    }
    U32 bits = 0;
    for (size_t i = 2; i < m_Words.size(); ++i) {
      if (!ParseButton(m_Words[i], bits)) {
        error = "unknown button '" + m_Words[i] + "'";
        return false;
      }
    }
    Add(f, cmd == "down" ? ScriptEvent::kButtonsDown : ScriptEvent::kButtonsUp, static_cast<S32>(bits));
  } else if (cmd == "suspend" || cmd == "resume" || cmd == "quit") {
    if (!Count(0, ("FRAME " + cmd).c_str(), error)) return false;
    Add(f, cmd == "suspend"  ? ScriptEvent::kSuspend
           : cmd == "resume" ? ScriptEvent::kResume
                             : ScriptEvent::kQuit);
  } else {
    error = "unknown command '" + cmd + "'";
    return false;
  }
  return true;
}

}  // namespace

bool InputScript::Parse(const std::string& text, const std::string& name, std::string& error) {
  m_Events.clear();
  m_Next = 0;
  m_LastX = m_LastY = 0;
  std::istringstream lines(text);
  std::string line;
  int lineNumber = 0;
  long lastFrame = 0;
  while (std::getline(lines, line)) {
    ++lineNumber;
    size_t hash = line.find('#');
    if (hash != std::string::npos) line.erase(hash);
    std::istringstream wordStream(line);
    std::vector<std::string> words;
    for (std::string w; wordStream >> w;) words.push_back(w);
    if (words.empty()) continue;
    std::string reason;
    long frame = 0;
    if (ParseInt(words[0], 0, 0x7FFFFFFF, frame) && frame < lastFrame) {
      reason =
          "frame " + words[0] + " comes before frame " + std::to_string(lastFrame) + " of an earlier line";
    } else if (LineParser(words, m_Events).Run(reason)) {
      lastFrame = frame;
      continue;
    }
    error = name + ":" + std::to_string(lineNumber) + ": " + reason;
    m_Events.clear();
    return false;
  }
  // Holds and drags put later events in the list; a stable sort keeps same-frame order.
  std::stable_sort(m_Events.begin(), m_Events.end(),
                   [](const ScriptEvent& a, const ScriptEvent& b) { return a.frame < b.frame; });
  return true;
}

bool InputScript::Load(const std::string& path, std::string& error) {
  FILE* file = fopen(path.c_str(), "rb");
  if (!file) {
    error = path + ": cannot be read";
    return false;
  }
  std::string text;
  char buffer[4096];
  for (size_t n; (n = fread(buffer, 1, sizeof buffer, file)) > 0;) text.append(buffer, n);
  fclose(file);
  return Parse(text, path, error);
}

ScriptEvent::Kind InputScript::Play(U32 frame) {
  while (m_Next < m_Events.size() && m_Events[m_Next].frame <= frame) {
    const ScriptEvent& e = m_Events[m_Next++];
    switch (e.kind) {
      case ScriptEvent::kTouch: {
        S32 x = e.b == kLastPosition ? m_LastX : e.b;
        S32 y = e.c == kLastPosition ? m_LastY : e.c;
        m_LastX = x;
        m_LastY = y;
        InputState::PushTouch(static_cast<U16>(e.a), static_cast<S16>(x), static_cast<S16>(y));
        break;
      }
      case ScriptEvent::kButtonsDown:
        InputState::PressButtons(static_cast<U32>(e.a));
        break;
      case ScriptEvent::kButtonsUp:
        InputState::ReleaseButtons(static_cast<U32>(e.a));
        break;
      case ScriptEvent::kTilt:
        InputState::SetTilt(e.a, e.b, e.c);
        break;
      default:
        return e.kind;
    }
  }
  return ScriptEvent::kTouch;
}

}  // namespace Ostra
}  // namespace Hollin
