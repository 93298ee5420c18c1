#include "ManifestReader.h"

#include <cmath>
#include <memory>
#include <set>

#include "BuildCache.h"
#include "ShapeReader.h"

namespace artgen {

namespace {

using soundgen::JoinPath;

bool ValidName(const std::string& name) {
  if (name.empty() || name.size() > 63) return false;
  for (char c : name) {
    if (!isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
  }
  return true;
}

// What every manifest of a run shares.
struct Shared {
  std::vector<std::unique_ptr<JsonDoc>> docs;
  std::map<std::string, Palette> palettes;
  std::map<std::string, TemplateRef> templates;
  std::map<std::string, std::string> names;  // sprite or background -> "file:line"
  std::string fontDir;
  uint64_t sharedKey = 0;  // palettes and templates, which every recipe may use
};

class Reader {
 public:
  Reader(Shared& shared, Diagnostics& diag) : m_Shared(shared), m_Diag(diag) {}

  void ReadPalettes(const JsonDoc& doc) {
    FieldReader root(doc, "", "manifest", {"about", "palettes", "templates", "sprites", "backgrounds"},
                     m_Diag);
    const Json* palettes = root.Get("palettes");
    if (!palettes) return;
    if (!palettes->is_object()) return root.Complain("palettes", "must be an object of palettes");
    for (auto it = palettes->begin(); it != palettes->end(); ++it) {
      const std::string path = JoinPath("/palettes", it.key());
      if (m_Shared.palettes.count(it.key())) {
        doc.Complain(m_Diag, path, "palette \"" + it.key() + "\" is given twice");
        continue;
      }
      if (!it->is_object()) {
        doc.Complain(m_Diag, path, "palette \"" + it.key() + "\" must be an object of colours");
        continue;
      }
      Palette& palette = m_Shared.palettes[it.key()];
      ShapeContext bare;
      ShapeReader colours(bare, m_Diag);
      for (auto c = it->begin(); c != it->end(); ++c) {
        Rgba rgba;
        std::string error;
        if (!c->is_string() || c->get<std::string>()[0] != '#' ||
            !colours.ParseColour(c->get<std::string>(), rgba, error)) {
          doc.Complain(m_Diag, JoinPath(path, c.key()),
                       "colour \"" + c.key() + "\" must be \"#rrggbb\" (or #rgb, #rrggbbaa)");
          continue;
        }
        palette[c.key()] = rgba;
      }
    }
  }

  void ReadTemplates(const JsonDoc& doc) {
    const Json* templates =
        doc.Root().is_object() && doc.Root().contains("templates") ? &doc.Root()["templates"] : nullptr;
    if (!templates) return;
    if (!templates->is_object()) return doc.Complain(m_Diag, "/templates", "\"templates\" must be an object");
    for (auto it = templates->begin(); it != templates->end(); ++it) {
      const std::string path = JoinPath("/templates", it.key());
      if (m_Shared.templates.count(it.key())) {
        doc.Complain(m_Diag, path, "template \"" + it.key() + "\" is given twice");
      } else if (!it->is_array()) {
        doc.Complain(m_Diag, path, "template \"" + it.key() + "\" must be a list of shapes");
      } else {
        m_Shared.templates[it.key()] = TemplateRef{&doc, path};
      }
    }
  }

  void ReadEntries(const JsonDoc& doc, ArtSet& out) {
    if (!doc.Root().is_object()) return;
    for (const char* group : {"sprites", "backgrounds"}) {
      if (!doc.Root().contains(group)) continue;
      const Json& entries = doc.Root()[group];
      const std::string groupPath = std::string("/") + group;
      if (!entries.is_object()) {
        doc.Complain(m_Diag, groupPath, std::string("\"") + group + "\" must be an object of named entries");
        continue;
      }
      for (auto it = entries.begin(); it != entries.end(); ++it) {
        const std::string path = JoinPath(groupPath, it.key());
        const std::string place = doc.File() + ":" + std::to_string(doc.LineOf(path));
        if (!ValidName(it.key())) {
          doc.Complain(m_Diag, path,
                       "\"" + it.key() + "\" is not a name: use letters, digits and _ (63 at most)");
          continue;
        }
        auto known = m_Shared.names.find(it.key());
        if (known != m_Shared.names.end()) {
          doc.Complain(m_Diag, path, "\"" + it.key() + "\" is made already (" + known->second + ")");
          continue;
        }
        m_Shared.names[it.key()] = place;
        const uint64_t key = soundgen::Fnv64(it->dump(), m_Shared.sharedKey);
        if (group[0] == 's') {
          SpriteRecipe sprite;
          if (ReadSprite(doc, path, it.key(), sprite)) {
            sprite.fingerprint = key;
            out.sprites.push_back(std::move(sprite));
          }
        } else {
          BackgroundRecipe background;
          if (ReadBackground(doc, path, it.key(), background)) {
            background.fingerprint = key;
            out.backgrounds.push_back(std::move(background));
          }
        }
      }
    }
  }

 private:
  bool ReadSize(FieldReader& f, int maxW, int maxH, int& w, int& h) {
    std::vector<double> v;
    if (!ReadNumbers(f, "size", 2, 1, std::max(maxW, maxH), v, true)) return false;
    if (v[0] != std::floor(v[0]) || v[1] != std::floor(v[1]) || v[0] > maxW || v[1] > maxH) {
      f.Complain("size", "must be [width, height] in whole pixels, at most " + std::to_string(maxW) + " by " +
                             std::to_string(maxH));
      return false;
    }
    w = static_cast<int>(v[0]);
    h = static_cast<int>(v[1]);
    return true;
  }

  bool ReadPalette(FieldReader& f, std::string& out) {
    if (!f.String("palette", out)) return true;
    if (!m_Shared.palettes.count(out)) {
      f.Complain("palette", "names \"" + out + "\", which is not a palette");
      return false;
    }
    return true;
  }

  ShapeContext Context(const std::string& palette, const std::vector<LayerRecipe>& layers) const {
    ShapeContext c;
    c.palettes = &m_Shared.palettes;
    c.palette = palette;
    c.templates = &m_Shared.templates;
    c.fontDir = m_Shared.fontDir;
    for (const LayerRecipe& l : layers) c.layers.push_back(l.name);
    return c;
  }

  bool ReadSprite(const JsonDoc& doc, const std::string& path, const std::string& name, SpriteRecipe& out) {
    FieldReader f(doc, path, "sprite " + name,
                  {"about", "size", "origin", "palette", "format", "storage", "tileSize", "compress",
                   "layers", "shapes", "points", "rects", "sequences"},
                  m_Diag);
    if (!f.IsObject()) return false;
    out.name = name;
    out.file = doc.File();
    out.line = doc.LineOf(path);
    ReadSize(f, 1024, 1024, out.width, out.height);
    std::array<double, 2> origin{{0, 0}};
    if (ReadPair(f, "origin", -1024, 2048, origin)) {
      out.originX = static_cast<int>(std::lround(origin[0]));
      out.originY = static_cast<int>(std::lround(origin[1]));
    }
    std::string palette;
    ReadPalette(f, palette);
    int format = 0;
    if (f.Choice("format", {"4444", "5551"}, format)) out.format4444 = format == 0;
    f.Choice("storage", {"auto", "sheet", "frames"}, out.storage);
    f.Int("tileSize", 8, 64, out.tileSize);
    if (f.Has("compress")) {
      if (f.Get("compress")->is_boolean()) {
        out.packed = f.Get("compress")->get<bool>();
      } else {
        f.Complain("compress", "must be true or false");
      }
    }
    ReadLayers(doc, f, out.layers);
    ShapeReader shapes(Context(palette, out.layers), m_Diag);
    if (f.Has("shapes")) shapes.ReadShapes(doc, f.PathOf("shapes"), out.shapes);

    const Json* sequences = f.Get("sequences");
    if (!sequences || !sequences->is_object() || sequences->empty()) {
      f.Complain(sequences ? "sequences" : nullptr,
                 sequences ? "must be an object of one or more sequences" : "needs the field \"sequences\"");
      return false;
    }
    for (auto it = sequences->begin(); it != sequences->end(); ++it) {
      SequenceRecipe seq;
      const std::string seqPath = JoinPath(f.PathOf("sequences"), it.key());
      if (!ReadSequence(doc, seqPath, name, it.key(), shapes, out, seq)) continue;
      out.sequences.push_back(std::move(seq));
    }
    // Points and rectangles of the sprite belong to every sequence that has none of
    // that name.
    SequenceRecipe common;
    ReadSeries(doc, f, "sprite " + name, common);
    for (SequenceRecipe& seq : out.sequences) {
      for (const PointSeries& p : common.points) {
        bool has = false;
        for (const PointSeries& q : seq.points) has = has || q.name == p.name;
        if (!has) seq.points.push_back(p);
      }
      for (const RectSeries& r : common.rects) {
        bool has = false;
        for (const RectSeries& q : seq.rects) has = has || q.name == r.name;
        if (!has) seq.rects.push_back(r);
      }
    }
    return f.Ok();
  }

  void ReadLayers(const JsonDoc& doc, FieldReader& f, std::vector<LayerRecipe>& out) {
    const Json* layers = f.Get("layers");
    if (!layers) {
      out.push_back(LayerRecipe{"Main", 0});
      return;
    }
    if (!layers->is_array() || layers->empty() || layers->size() > 8) {
      f.Complain("layers", "must be a list of 1 to 8 layers {\"name\": ..., \"depth\": ...}");
      out.push_back(LayerRecipe{"Main", 0});
      return;
    }
    for (size_t i = 0; i < layers->size(); ++i) {
      FieldReader l(doc, JoinPath(f.PathOf("layers"), std::to_string(i)), "layer", {"about", "name", "depth"},
                    m_Diag);
      LayerRecipe layer;
      l.String("name", layer.name, true);
      l.Number("depth", -1000, 1000, layer.depth);
      for (const LayerRecipe& other : out) {
        if (other.name == layer.name) l.Complain("name", "is \"" + layer.name + "\", given twice");
      }
      out.push_back(layer);
    }
  }

  bool ReadSequence(const JsonDoc& doc, const std::string& path, const std::string& sprite,
                    const std::string& name, ShapeReader& shapes, const SpriteRecipe& owner,
                    SequenceRecipe& out) {
    const std::string what = "sequence " + sprite + "/" + name;
    FieldReader f(doc, path, what,
                  {"about", "frames", "loop", "base", "filter", "motion", "shapes", "points", "rects",
                   "callbacks", "same"},
                  m_Diag);
    if (!f.IsObject()) return false;
    if (!ValidName(name)) {
      f.Complain(nullptr, "has a name that is not letters, digits and _");
      return false;
    }
    std::string same;
    if (f.String("same", same)) {
      bool found = false;
      for (const SequenceRecipe& s : owner.sequences) {
        if (s.name == same) out = s, found = true;
      }
      if (!found) f.Complain("same", "names \"" + same + "\", which is not a sequence given before it");
    }
    out.name = name;
    out.line = doc.LineOf(path);
    f.Int("frames", 1, 240, out.frames, same.empty());
    for (const char* flag : {"loop", "base"}) {
      if (!f.Has(flag)) continue;
      if (!f.Get(flag)->is_boolean()) {
        f.Complain(flag, "must be true or false");
        continue;
      }
      (flag[0] == 'l' ? out.loop : out.base) = f.Get(flag)->get<bool>();
    }
    int filter = 0;
    if (f.Choice("filter", {"none", "grey", "dark", "bright"}, filter))
      out.filter = static_cast<Filter>(filter);
    if (f.Has("motion")) shapes.ReadMotions(doc, f.PathOf("motion"), out.motions);
    if (f.Has("shapes")) shapes.ReadShapes(doc, f.PathOf("shapes"), out.shapes);
    ReadSeries(doc, f, what, out);
    return f.Ok();
  }

  // One pair, or one per frame with null for none.
  template <size_t N, typename Series>
  void ReadValues(FieldReader& s, const std::string& key, int frames, Series& series, const char* form) {
    const Json& v = *s.Get(key.c_str());
    auto one = [&](const Json& e, std::array<int, N>& out) {
      if (!e.is_array() || e.size() != N) return false;
      for (size_t i = 0; i < N; ++i) {
        if (!e[i].is_number_integer() || std::abs(e[i].get<long long>()) > 32767) return false;
        out[i] = e[i].get<int>();
      }
      return true;
    };
    series.name = key;
    std::array<int, N> value{};
    if (one(v, value)) {
      series.values.push_back(value);
      series.present.push_back(true);
      return;
    }
    bool ok = v.is_array() && static_cast<int>(v.size()) == frames;
    for (size_t i = 0; ok && i < v.size(); ++i) {
      const bool present = !v[i].is_null();
      ok = !present || one(v[i], value);
      series.values.push_back(present ? value : std::array<int, N>{});
      series.present.push_back(present);
    }
    if (!ok) {
      s.Complain(key.c_str(), std::string("must be ") + form +
                                  " for all frames or a list of one per frame (" + std::to_string(frames) +
                                  "), null where there is none");
    }
  }

  void ReadSeries(const JsonDoc& doc, FieldReader& f, const std::string& what, SequenceRecipe& out) {
    for (const char* group : {"points", "rects", "callbacks"}) {
      const Json* node = f.Get(group);
      if (!node) continue;
      if (!node->is_object()) {
        f.Complain(group, "must be an object of named series");
        continue;
      }
      std::vector<std::string> keys;
      for (auto it = node->begin(); it != node->end(); ++it) keys.push_back(it.key());
      FieldReader s(doc, f.PathOf(group), what + " " + group, keys, m_Diag);
      for (const std::string& key : keys) {
        if (group[0] == 'p') {
          PointSeries p;
          ReadValues<2>(s, key, out.frames, p, "[x, y]");
          out.points.push_back(p);
        } else if (group[0] == 'r') {
          RectSeries r;
          ReadValues<4>(s, key, out.frames, r, "[left, top, right, bottom]");
          out.rects.push_back(r);
        } else {
          CallbackSeries c;
          c.name = key;
          ReadCallback(s, key, out.frames, c);
          out.callbacks.push_back(c);
        }
      }
      if (out.points.size() > 255 || out.rects.size() > 255 || out.callbacks.size() > 255)
        f.Complain(group, "holds more than 255 series");
    }
  }

  void ReadCallback(FieldReader& s, const std::string& key, int frames, CallbackSeries& out) {
    const Json& v = *s.Get(key.c_str());
    auto value = [](const Json& e, uint32_t& o) {
      if (!e.is_number_integer() || e.get<long long>() < 0 || e.get<long long>() > 0xFFFFFFFFll) return false;
      o = static_cast<uint32_t>(e.get<long long>());
      return true;
    };
    bool ok = true;
    if (v.is_object()) {
      for (auto it = v.begin(); ok && it != v.end(); ++it) {
        char* end = nullptr;
        const long frame = strtol(it.key().c_str(), &end, 10);
        uint32_t o = 0;
        ok = !it.key().empty() && *end == '\0' && frame >= 0 && frame < frames && value(*it, o);
        if (ok) out.values[static_cast<int>(frame)] = o;
      }
    } else if (v.is_array() && static_cast<int>(v.size()) == frames) {
      for (size_t i = 0; ok && i < v.size(); ++i) {
        uint32_t o = 0;
        ok = value(v[i], o);
        if (ok && o) out.values[static_cast<int>(i)] = o;
      }
    } else {
      ok = false;
    }
    if (!ok) {
      s.Complain(key.c_str(), "must be {\"frame\": value, ...} with frames 0 to " +
                                  std::to_string(frames - 1) +
                                  ", or one value per frame; values are whole numbers 0 or more");
    }
  }

  bool ReadBackground(const JsonDoc& doc, const std::string& path, const std::string& name,
                      BackgroundRecipe& out) {
    FieldReader f(doc, path, "background " + name, {"about", "size", "palette", "shapes"}, m_Diag);
    if (!f.IsObject()) return false;
    out.name = name;
    out.file = doc.File();
    out.line = doc.LineOf(path);
    ReadSize(f, 8192, 4096, out.width, out.height);
    std::string palette;
    ReadPalette(f, palette);
    ShapeReader shapes(Context(palette, {}), m_Diag);
    if (f.Has("shapes")) shapes.ReadShapes(doc, f.PathOf("shapes"), out.shapes);
    return f.Ok();
  }

  Shared& m_Shared;
  Diagnostics& m_Diag;
};

}  // namespace

bool ReadArtManifests(const std::vector<std::string>& files, const std::string& fontDir, ArtSet& out,
                      Diagnostics& diag) {
  Shared shared;
  shared.fontDir = fontDir;
  for (const std::string& file : files) {
    auto doc = std::make_unique<JsonDoc>();
    if (doc->Load(file, diag)) shared.docs.push_back(std::move(doc));
  }
  Reader reader(shared, diag);
  for (const auto& doc : shared.docs) reader.ReadPalettes(*doc);
  for (const auto& doc : shared.docs) reader.ReadTemplates(*doc);
  // A change to any palette or template may change any picture.
  for (const auto& doc : shared.docs) {
    if (!doc->Root().is_object()) continue;
    for (const char* part : {"palettes", "templates"}) {
      if (doc->Root().contains(part))
        shared.sharedKey = soundgen::Fnv64(doc->Root()[part].dump(), shared.sharedKey);
    }
  }
  shared.sharedKey = soundgen::Fnv64(fontDir, shared.sharedKey);
  for (const auto& doc : shared.docs) reader.ReadEntries(*doc, out);
  return diag.Empty();
}

}  // namespace artgen
