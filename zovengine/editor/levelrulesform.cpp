#include <algorithm>
#include <array>
#include <map>

#include "editor/levelrulesreport.h"
#include "objects/fieldforms.h"
#include "render/components/particlesystemc.h"

namespace ZOVEngine {
namespace {

/// Components that are read by hand, but for their lists, and those without keys.
const std::map<std::string, FieldEntries>& HandForms() {
  using enum FieldForm;
  static const std::map<std::string, FieldEntries> forms = {
      {"AIComp", {}},
      {"AudioSource", {}},
      {"ColliderHolder",
       {{"m_active", kFlag},
        {"m_layer", kWhole},
        {"m_collider_type", kText},
        {"bitmask_category", kText},
        {"m_local_scale", kVector},
        {"m_local_pos", kVector},
        {"m_local_rot", kNumber}}},
      {"EnvironmentDamage", {}},
      {"EnvironmentRough", {}},
      {"MainMenuController", {}},
      {"Particle", {}},
      {"SplashController", {}},
      {"iModel", {}},
  };
  return forms;
}

/// Classes that have fields and are no components: what shots have in common.
constexpr const char* kBases[] = {"Shot", "WoundingShot", "AreaShot"};

/// The form of each component's fields by its name.
const std::map<std::string, FieldEntries>& ComponentForms() {
  static const std::map<std::string, FieldEntries> forms = [] {
    std::map<std::string, FieldEntries> all = HandForms();
    all.insert(ListedForms().begin(), ListedForms().end());
    for (const char* base : kBases) all.erase(base);
    return all;
  }();
  return forms;
}

bool AreNumbers(const Value& value, unsigned count) {
  return value.IsArray() && value.Size() == count &&
         std::all_of(value.Begin(), value.End(), [](const Value& own) { return own.IsNumber(); });
}

bool AreVectors(const Value& value) {
  return value.IsArray() && std::all_of(value.Begin(), value.End(), IsVector);
}

/// Whether the loader takes the value for a field of this form.
bool Fits(const Value& value, FieldForm form) {
  switch (form) {
    case FieldForm::kFlag:
      return true;
    case FieldForm::kWhole:
    case FieldForm::kNumber:
      return value.IsNumber();
    case FieldForm::kText:
      return value.IsString();
    case FieldForm::kWholePair:
    case FieldForm::kNumberPair:
      return AreNumbers(value, 2);
    case FieldForm::kVector:
      return AreNumbers(value, 3);
    case FieldForm::kNumberQuad:
      return AreNumbers(value, 4);
    case FieldForm::kVectorPair:
      return AreVectors(value) && value.Size() == 2;
    case FieldForm::kVectors:
      return AreVectors(value);
  }
  return false;
}

const char* Describe(FieldForm form) {
  static constexpr std::array<const char*, 10> names = {
      "true or false", "a whole number", "a number",     "a text",     "two numbers",
      "two numbers",   "three numbers",  "four numbers", "two points", "a list of points",
  };
  return names[static_cast<std::size_t>(form)];
}

bool IsFraction(const Value& value) {
  return value.IsDouble();
}

/// The form of one object.
class ObjectForm {
 public:
  ObjectForm(const ObjectView& object, LevelReport* report) : m_object(object), m_report(*report) {}

  void Check() {
    if (!m_object.record->IsObject()) return Add("record", "is no object");
    CheckText("name");
    CheckFlag("active");
    CheckChildren();
    const Value* listed = FindValue(*m_object.record, "components");
    if (listed == nullptr) return Add("record", "lists no components");
    if (!listed->IsArray()) return Add("record", "has \"components\" that are no list");
    for (const Value& name : listed->GetArray()) CheckListed(name, *listed);
    FindUnlisted();
  }

 private:
  void Add(const char* rule, const std::string& fault) { m_report.Add(rule, m_object, fault); }

  void CheckText(const char* key) {
    const Value* value = FindValue(*m_object.record, key);
    if (value == nullptr) Add("field-absent", std::string("has no \"") + key + "\"");
    if (value != nullptr && !value->IsString()) {
      Add("record", std::string("has a \"") + key + "\" that is no text");
    }
  }

  void CheckFlag(const char* key) {
    const Value* value = FindValue(*m_object.record, key);
    if (value == nullptr) Add("field-absent", std::string("has no \"") + key + "\"");
    if (value != nullptr && !value->IsBool()) {
      Add("field-flag", std::string("has an \"") + key + "\" that is neither true nor false");
    }
  }

  void CheckChildren() {
    const Value* children = FindValue(*m_object.record, "Childs");
    if (children == nullptr) return Add("record", "has no \"Childs\"");
    if (!children->IsArray()) Add("record", "has \"Childs\" that are no list");
  }

  void CheckListed(const Value& name, const Value& listed) {
    if (!name.IsString()) return Add("record", "lists a component that is no text");
    const std::string component(name.GetString(), name.GetStringLength());
    const auto forms = ComponentForms().find(component);
    if (forms == ComponentForms().end()) {
      return Add("component-unknown", "has the component " + component + ", which is unknown");
    }
    if (std::count(listed.Begin(), listed.End(), name) > 1) {
      const bool is_first = std::find(listed.Begin(), listed.End(), name) == &name;
      if (is_first) Add("component-twice", "lists the component " + component + " twice");
      return;
    }
    const Value* fields = FindValue(*m_object.record, component.c_str());
    if (fields == nullptr) {
      return Add("component-absent", "lists the component " + component + ", but lacks its key");
    }
    CheckComponent(component, *fields, forms->second);
  }

  void FindUnlisted() {
    for (const auto& member : m_object.record->GetObject()) {
      const std::string key(member.name.GetString(), member.name.GetStringLength());
      if (!m_object.Has(key) && ComponentForms().contains(key)) {
        Add("component-unlisted", "has the key " + key + ", but does not list that component");
      }
    }
  }

  void CheckComponent(const std::string& component, const Value& fields,
                      const FieldEntries& entries) {
    m_absent.clear();
    for (const FieldEntry& entry : entries) {
      const Value* value = Find(fields, entry.key);
      if (value != nullptr) CheckField(component, entry.key, *value, entry.form);
    }
    if (component == "AudioSource") CheckSounds(fields);
    if (component == "ColliderHolder") CheckShape(fields);
    if (component == "iModel") CheckModel(fields);
    if (component == "ParticleSystemC") CheckParticles(fields);
    if (!m_absent.empty()) Add("field-absent", "has in " + component + " no" + m_absent);
  }

  /// The value of a key, which counts as absent without one.
  const Value* Find(const Value& fields, const char* key) {
    const Value* value = FindValue(fields, key);
    if (value == nullptr) m_absent += (m_absent.empty() ? " " : ", ") + std::string(key);
    return value;
  }

  void CheckField(const std::string& component, const char* key, const Value& value,
                  FieldForm form) {
    if (!Fits(value, form)) {
      return AddField("field-form", component, key, std::string("not ") + Describe(form));
    }
    if (form == FieldForm::kFlag && !value.IsBool()) {
      AddField("field-flag", component, key, "neither true nor false");
    }
    const bool is_fraction = form == FieldForm::kWhole && IsFraction(value);
    const bool has_fraction =
        form == FieldForm::kWholePair && std::any_of(value.Begin(), value.End(), IsFraction);
    if (is_fraction || has_fraction) AddField("field-whole", component, key, "not whole");
  }

  void AddField(const char* rule, const std::string& component, const char* key,
                const std::string& fault) {
    Add(rule, "has in " + component + " a " + key + " that is " + fault);
  }

  /// A list whose entries all hold to `fits`; null with a problem otherwise.
  template <class Predicate>
  const Value* CheckList(const Value& fields, const char* component, const char* key,
                         const char* entries, Predicate fits) {
    const Value* list = Find(fields, key);
    if (list == nullptr) return nullptr;
    if (list->IsArray() && std::all_of(list->Begin(), list->End(), fits)) return list;
    Add("field-form",
        std::string("has in ") + component + " a " + key + " that is not a list of " + entries);
    return nullptr;
  }

  void CheckSounds(const Value& fields) {
    const auto is_any = [](const Value&) { return true; };
    const auto is_text = [](const Value& own) { return own.IsString(); };
    const auto is_number = [](const Value& own) { return own.IsNumber(); };
    const Value* names = CheckList(fields, "AudioSource", "sounds", "texts", is_text);
    const unsigned count = names == nullptr ? 0 : names->Size();
    for (const char* key : {"loop", "is_3D", "start_play"}) {
      RequireLength(CheckList(fields, "AudioSource", key, "flags", is_any), key, fields, count);
    }
    RequireLength(CheckList(fields, "AudioSource", "volume", "numbers", is_number), "volume",
                  fields, count);
    RequireLength(CheckList(fields, "AudioSource", "sound_type", "texts", is_text), "sound_type",
                  fields, count);
  }

  /// A list that is absent is empty, and so too short if there are sounds.
  void RequireLength(const Value* list, const char* key, const Value& fields, unsigned count) {
    if (list == nullptr && HasKey(fields, key)) return;
    if (list != nullptr && list->Size() >= count) return;
    if (count == 0) return;
    Add("sound-lists", std::string("has in AudioSource a ") + key + " that is shorter than sounds");
  }

  void CheckShape(const Value& fields) {
    const std::string type(TextIn(fields, "m_collider_type", "Box"));
    if (type != "Box" && type != "Circle" && type != "Polygon") {
      Add("collider-type", "has a collider of the unknown shape \"" + type + "\"");
    }
    if (type != "Polygon") return;
    const Value* corners = Find(fields, "collider_vertices");
    if (corners == nullptr) return;
    CheckField("ColliderHolder", "collider_vertices", *corners, FieldForm::kVectors);
  }

  void CheckModel(const Value& fields) {
    const auto is_row = [](const Value& row) { return AreNumbers(row, 9); };
    const auto is_number = [](const Value& own) { return own.IsNumber(); };
    CheckList(fields, "iModel", "m_vertices", "rows of 9 numbers", is_row);
    const Value* indices = CheckList(fields, "iModel", "m_index_buffer", "numbers", is_number);
    if (indices != nullptr && std::any_of(indices->Begin(), indices->End(), IsFraction)) {
      Add("field-whole", "has in iModel a m_index_buffer that is not whole");
    }
  }

  void CheckParticles(const Value& fields) {
    const Value* rate = FindValue(fields, "m_emitter_num_particles");
    if (rate != nullptr && AreNumbers(*rate, 2) && ToInt((*rate)[0]) > ToInt((*rate)[1])) {
      Add("particle-rate", "has births with a minimum above the maximum");
    }
    const int pool = WholeIn(FindValue(fields, "m_num_of_particles"), 0);
    if (pool < 0 || pool > kMaxParticles) {
      Add("particle-pool", "has a pool of " + std::to_string(pool) + " particles, not 0 to " +
                               std::to_string(kMaxParticles));
    }
  }

  const ObjectView& m_object;
  LevelReport& m_report;
  std::string m_absent;
};

void CheckObjectFile(const ObjectsView& objects, LevelFile file, LevelReport* report) {
  if (!objects.Root().IsObject()) return;
  const Value* records = FindValue(objects.Root(), "GameObjFactory");
  if (records == nullptr || !records->IsArray()) {
    report->Add("record", file, "the list \"GameObjFactory\" is missing");
  }
  for (const ObjectView& object : objects.All()) ObjectForm(object, report).Check();
}

const char* Title(LevelFile file) {
  static constexpr std::array<const char*, 4> titles = {"level file", "map", "file of the tiles",
                                                        "file of the objects"};
  return titles[static_cast<std::size_t>(file)];
}

}  // namespace

void CheckForms(const LevelView& level, LevelReport* report) {
  for (const LevelFile file : level.broken) {
    report->Add("json", file, std::string("the ") + Title(file) + " is absent or no JSON object");
  }
  CheckObjectFile(level.objects, LevelFile::kObjects, report);
  CheckObjectFile(level.tiles, LevelFile::kTiles, report);
}

}  // namespace ZOVEngine
