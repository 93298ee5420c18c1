// The JSON side of animwriter: the description read into an AnimDesc, and the whole
// tool from a description file to the two sprite files.
#include <nlohmann/json.hpp>

#include <cmath>

#include "AnimWriter.h"

namespace assetlib {

namespace {

using nlohmann::json;

// Collects the first problem with its place in the description.
struct Reader {
  std::string name;
  std::string problem;

  bool Fail(const std::string& where, const std::string& what) {
    if (problem.empty()) problem = name + ": " + where + ": " + what;
    return false;
  }
  bool Int(const json& v, const std::string& where, int low, int high, int& out) {
    if (!v.is_number_integer()) return Fail(where, "not a whole number");
    const long long n = v.get<long long>();
    if (n < low || n > high)
      return Fail(where, "outside " + std::to_string(low) + " to " + std::to_string(high));
    out = static_cast<int>(n);
    return true;
  }
  bool Pair(const json& v, const std::string& where, int& x, int& y) {
    if (!v.is_array() || v.size() != 2) return Fail(where, "not a pair [x, y]");
    return Int(v[0], where, -32767, 32767, x) && Int(v[1], where, -32767, 32767, y);
  }
};

bool ReadPoints(Reader& r, const json& v, const std::string& where, size_t frames,
                std::vector<AnimPoint>& out) {
  AnimPoint p;
  p.nil = false;
  // One pair for every frame, or one entry per frame.
  if (v.is_array() && v.size() == 2 && v[0].is_number()) {
    if (!r.Pair(v, where, p.x, p.y)) return false;
    out.assign(frames, p);
    return true;
  }
  if (!v.is_array() || v.size() != frames) return r.Fail(where, "needs one entry per frame or one [x, y]");
  for (size_t i = 0; i < frames; ++i) {
    AnimPoint e;
    if (!v[i].is_null()) {
      e.nil = false;
      if (!r.Pair(v[i], where + "[" + std::to_string(i) + "]", e.x, e.y)) return false;
    }
    out.push_back(e);
  }
  return true;
}

bool ReadRect(Reader& r, const json& v, const std::string& where, AnimRect& out) {
  if (!v.is_array() || v.size() != 4) return r.Fail(where, "not a rectangle [left, top, right, bottom]");
  out.nil = false;
  return r.Int(v[0], where, -32767, 32767, out.left) && r.Int(v[1], where, -32767, 32767, out.top) &&
         r.Int(v[2], where, -32767, 32767, out.right) && r.Int(v[3], where, -32767, 32767, out.bottom);
}

bool ReadRects(Reader& r, const json& v, const std::string& where, size_t frames,
               std::vector<AnimRect>& out) {
  if (v.is_array() && v.size() == 4 && v[0].is_number()) {
    AnimRect e;
    if (!ReadRect(r, v, where, e)) return false;
    out.assign(frames, e);
    return true;
  }
  if (!v.is_array() || v.size() != frames) return r.Fail(where, "needs one entry per frame or one rectangle");
  for (size_t i = 0; i < frames; ++i) {
    AnimRect e;
    if (!v[i].is_null() && !ReadRect(r, v[i], where + "[" + std::to_string(i) + "]", e)) return false;
    out.push_back(e);
  }
  return true;
}

bool ReadCallbacks(Reader& r, const json& v, const std::string& where, size_t frames,
                   std::vector<uint32_t>& out) {
  out.assign(frames, 0);
  auto value = [&](const json& n, const std::string& at, uint32_t& into) {
    if (!n.is_number_unsigned() && !(n.is_number_integer() && n.get<long long>() >= 0))
      return r.Fail(at, "not a value from 0 to 4294967295");
    const unsigned long long u = n.get<unsigned long long>();
    if (u > 0xFFFFFFFFull) return r.Fail(at, "not a value from 0 to 4294967295");
    into = static_cast<uint32_t>(u);
    return true;
  };
  if (v.is_array()) {
    if (v.size() != frames) return r.Fail(where, "needs one value per frame");
    for (size_t i = 0; i < frames; ++i) {
      if (!value(v[i], where + "[" + std::to_string(i) + "]", out[i])) return false;
    }
    return true;
  }
  if (!v.is_object()) return r.Fail(where, "needs a list of values or an object of frame to value");
  for (auto it = v.begin(); it != v.end(); ++it) {
    char* end = nullptr;
    const unsigned long frame = strtoul(it.key().c_str(), &end, 10);
    if (it.key().empty() || *end != '\0' || frame >= frames)
      return r.Fail(where + "." + it.key(), "not a frame of the sequence");
    if (!value(it.value(), where + "." + it.key(), out[frame])) return false;
  }
  return true;
}

bool ReadSequence(Reader& r, const json& s, const std::string& where, const AnimDesc& desc, int originX,
                  int originY, AnimSequenceDesc& out) {
  if (!s.is_object()) return r.Fail(where, "not an object");
  if (!s.contains("name") || !s["name"].is_string() || s["name"].get<std::string>().empty())
    return r.Fail(where, "needs a \"name\"");
  out.name = s["name"].get<std::string>();
  out.originX = originX;
  out.originY = originY;
  if (s.contains("origin") && !r.Pair(s["origin"], where + ".origin", out.originX, out.originY)) return false;
  if (!s.contains("frames") || !s["frames"].is_array() || s["frames"].empty())
    return r.Fail(where, "needs a list of \"frames\"");
  const json& frames = s["frames"];
  for (size_t f = 0; f < frames.size(); ++f) {
    const std::string at = where + ".frames[" + std::to_string(f) + "]";
    std::vector<std::pair<unsigned, std::string>> parts;
    if (frames[f].is_string()) {
      parts.emplace_back(0, frames[f].get<std::string>());
    } else if (frames[f].is_object()) {
      for (auto it = frames[f].begin(); it != frames[f].end(); ++it) {
        unsigned layer = 0;
        while (layer < desc.layers.size() && desc.layers[layer].name != it.key()) ++layer;
        if (layer == desc.layers.size()) return r.Fail(at, "no layer named \"" + it.key() + "\"");
        if (!it.value().is_string()) return r.Fail(at + "." + it.key(), "not a picture name");
        parts.emplace_back(layer, it.value().get<std::string>());
      }
    } else {
      return r.Fail(at, "not a picture name or an object of layer to picture");
    }
    out.frames.push_back(parts);
  }
  const size_t count = frames.size();
  if (s.contains("points")) {
    if (!s["points"].is_object()) return r.Fail(where + ".points", "not an object");
    for (auto it = s["points"].begin(); it != s["points"].end(); ++it) {
      out.points.emplace_back(it.key(), std::vector<AnimPoint>());
      if (!ReadPoints(r, it.value(), where + ".points." + it.key(), count, out.points.back().second))
        return false;
    }
  }
  if (s.contains("rects")) {
    if (!s["rects"].is_object()) return r.Fail(where + ".rects", "not an object");
    for (auto it = s["rects"].begin(); it != s["rects"].end(); ++it) {
      out.rects.emplace_back(it.key(), std::vector<AnimRect>());
      if (!ReadRects(r, it.value(), where + ".rects." + it.key(), count, out.rects.back().second))
        return false;
    }
  }
  if (s.contains("callbacks")) {
    if (!s["callbacks"].is_object()) return r.Fail(where + ".callbacks", "not an object");
    for (auto it = s["callbacks"].begin(); it != s["callbacks"].end(); ++it) {
      out.callbacks.emplace_back(it.key(), std::vector<uint32_t>());
      if (!ReadCallbacks(r, it.value(), where + ".callbacks." + it.key(), count, out.callbacks.back().second))
        return false;
    }
  }
  return true;
}

}  // namespace

bool ParseAnimDescription(const std::string& text, const std::string& name, AnimDesc& out,
                          std::string& error) {
  out = AnimDesc();
  Reader r{name, ""};
  const json doc = json::parse(text, nullptr, false);
  if (doc.is_discarded() || !doc.is_object()) {
    error = name + ": not a JSON object";
    return false;
  }
  int value = 0;
  if (doc.contains("tileSize")) {
    if (!r.Int(doc["tileSize"], "tileSize", 8, 128, value)) return error = r.problem, false;
    out.tileSize = static_cast<unsigned>(value);
  }
  if (doc.contains("format") &&
      (!doc["format"].is_string() || !ParsePixelFormat(doc["format"].get<std::string>(), out.format)))
    return error = name + ": format: not \"4444\" or \"5551\"", false;
  if (doc.contains("compress")) {
    if (!doc["compress"].is_boolean()) return error = name + ": compress: not true or false", false;
    out.packed = doc["compress"].get<bool>();
  }
  if (doc.contains("storage")) {
    const std::string storage = doc["storage"].is_string() ? doc["storage"].get<std::string>() : "";
    if (storage == "auto") {
      out.storage = AnimStorage::kAuto;
    } else if (storage == "sheet") {
      out.storage = AnimStorage::kSheet;
    } else if (storage == "frames") {
      out.storage = AnimStorage::kFrames;
    } else {
      return error = name + ": storage: not \"auto\", \"sheet\" or \"frames\"", false;
    }
  }
  if (doc.contains("maxSheet")) {
    if (!r.Int(doc["maxSheet"], "maxSheet", 8, 2048, value)) return error = r.problem, false;
    out.maxSheet = static_cast<unsigned>(value);
  }
  int originX = 0, originY = 0;
  if (doc.contains("origin") && !r.Pair(doc["origin"], "origin", originX, originY))
    return error = r.problem, false;

  if (doc.contains("layers")) {
    const json& layers = doc["layers"];
    if (!layers.is_array() || layers.empty() || layers.size() > 255)
      return error = name + ": layers: needs a list of 1 to 255 layers", false;
    for (size_t i = 0; i < layers.size(); ++i) {
      const std::string at = "layers[" + std::to_string(i) + "]";
      const json& l = layers[i];
      if (!l.is_object() || !l.contains("name") || !l["name"].is_string() ||
          l["name"].get<std::string>().empty())
        return error = name + ": " + at + ": needs a \"name\"", false;
      AnimLayerDesc layer;
      layer.name = l["name"].get<std::string>();
      if (l.contains("depth")) {
        if (!l["depth"].is_number() || std::fabs(l["depth"].get<double>()) >= 32768.0)
          return error = name + ": " + at + ".depth: not a number within 32767", false;
        layer.depthRaw = static_cast<int32_t>(std::lround(l["depth"].get<double>() * 65536.0));
      }
      for (const AnimLayerDesc& other : out.layers) {
        if (other.name == layer.name) return error = name + ": " + at + ": layer named twice", false;
      }
      out.layers.push_back(layer);
    }
  } else {
    out.layers.push_back(AnimLayerDesc{"Main", 0});
  }

  if (!doc.contains("sequences") || !doc["sequences"].is_array() || doc["sequences"].empty())
    return error = name + ": needs a list of \"sequences\"", false;
  for (size_t i = 0; i < doc["sequences"].size(); ++i) {
    AnimSequenceDesc seq;
    if (!ReadSequence(r, doc["sequences"][i], "sequences[" + std::to_string(i) + "]", out, originX, originY,
                      seq))
      return error = r.problem, false;
    out.sequences.push_back(std::move(seq));
  }
  return true;
}

bool WriteAnim(const std::string& jsonPath, const std::string& prefix, AnimOutput* result,
               std::string& error) {
  Bytes text;
  if (!ReadFile(jsonPath, text, error)) return false;
  AnimDesc desc;
  if (!ParseAnimDescription(std::string(text.begin(), text.end()), jsonPath, desc, error)) return false;
  const size_t slash = jsonPath.rfind('/');
  const std::string dir = slash == std::string::npos ? "" : jsonPath.substr(0, slash + 1);
  ImageSource images = [&dir](const std::string& picture, Image& out, std::string& problem) {
    return ReadPng(!picture.empty() && picture[0] == '/' ? picture : dir + picture, out, problem);
  };
  AnimOutput output;
  if (!BuildAnim(desc, images, jsonPath, output, error) || !WriteFile(prefix + ".anim", output.anim, error) ||
      !WriteFile(prefix + ".tex", output.tex, error))
    return false;
  if (result) *result = std::move(output);
  return true;
}

}  // namespace assetlib
