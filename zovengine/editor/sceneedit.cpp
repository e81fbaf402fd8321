#include "editor/sceneedit.h"

#include <algorithm>
#include <utility>

#include "editor/leveldocument.h"
#include "editor/leveltext.h"
#include "editor/scene.h"

namespace ZOVEngine {
namespace {

using rapidjson::Document;
using Json = rapidjson::Value;

/// A text that differs from another one in one stretch, without what both have in common.
struct Splice {
  std::size_t prefix = 0;
  std::string before, after;

  Splice(const std::string& old_text, const std::string& new_text) {
    const std::size_t shorter = std::min(old_text.size(), new_text.size());
    while (prefix < shorter && old_text[prefix] == new_text[prefix]) ++prefix;
    std::size_t suffix = 0;
    while (suffix < shorter - prefix &&
           old_text[old_text.size() - 1 - suffix] == new_text[new_text.size() - 1 - suffix]) {
      ++suffix;
    }
    before = old_text.substr(prefix, old_text.size() - suffix - prefix);
    after = new_text.substr(prefix, new_text.size() - suffix - prefix);
  }

  static void Replace(std::string* text, std::size_t at, const std::string& from,
                      const std::string& to) {
    if (text->compare(at, from.size(), from) == 0) text->replace(at, from.size(), to);
  }
};

class SceneCommand final : public EditCommand {
 public:
  SceneCommand(LevelDocument* document, std::string label, Splice splice, Selection before,
               Selection* selection)
      : m_document(document),
        m_label(std::move(label)),
        m_splice(std::move(splice)),
        m_before(std::move(before)),
        m_after(*selection),
        m_selection(selection) {}

  void Undo() override { Apply(m_splice.after, m_splice.before, m_before); }
  void Redo() override { Apply(m_splice.before, m_splice.after, m_after); }
  std::string Label() const override { return m_label; }

 private:
  void Apply(const std::string& from, const std::string& to, const Selection& selected) {
    std::string text = m_document->Text();
    Splice::Replace(&text, m_splice.prefix, from, to);
    m_document->SetText(text);
    BuildScene(*m_document, TilesText());
    *m_selection = selected;
  }

  LevelDocument* m_document;
  std::string m_label;
  Splice m_splice;
  Selection m_before, m_after;
  Selection* m_selection;
};

Json& ListBelow(Document& document, const ObjectPath& parent) {
  Json* list = &document[kRoots];
  for (const std::uint32_t place : parent) list = &(*list)[place][kChildren];
  return *list;
}

ObjectPath ParentPath(ObjectPath path) {
  path.pop_back();
  return path;
}

/// Takes the record at `path` out of its list.
Json TakeRecord(Document& document, const ObjectPath& path) {
  Json& list = ListBelow(document, ParentPath(path));
  Json record = std::move(list[path.back()]);
  list.Erase(list.Begin() + path.back());
  return record;
}

Json& RecordAt(Document& document, const ObjectPath& path) {
  return ListBelow(document, ParentPath(path))[path.back()];
}

/// Moves a record from the end of its list to `place`.
void MoveLastTo(Json& list, rapidjson::SizeType place) {
  for (rapidjson::SizeType i = list.Size() - 1; i > place; --i) list[i].Swap(list[i - 1]);
}

void MoveRecord(Json& record, float x, float y) {
  const auto transform = record.FindMember("Transform");
  if (transform == record.MemberEnd()) return;
  Json& position = transform->value["m_pos"];
  position[0] = position[0].GetFloat() + x;
  position[1] = position[1].GetFloat() + y;
}

/// Those of the paths that no other one leads through, the last in the tree first: so the paths
/// that are still to come stay right while records come or go.
std::vector<ObjectPath> TopmostFromTheEnd(std::vector<ObjectPath> paths) {
  std::sort(paths.begin(), paths.end());
  std::vector<ObjectPath> out;
  for (const ObjectPath& path : paths) {
    if (!path.empty() && (out.empty() || !IsWithin(path, out.back()))) out.push_back(path);
  }
  std::reverse(out.begin(), out.end());
  return out;
}

std::string Names(const LevelDocument& document, const std::vector<ObjectPath>& paths) {
  if (paths.size() == 1) return document.Name(paths.front());
  return std::to_string(paths.size()) + " objects";
}

bool AllExist(const LevelDocument& document, const std::vector<ObjectPath>& paths) {
  return !paths.empty() && std::all_of(paths.begin(), paths.end(),
                                       [&](const ObjectPath& path) { return document.Has(path); });
}

}  // namespace

bool SceneEditor::Refuse(const std::string& sentence) {
  m_fault = sentence;
  return false;
}

std::unique_ptr<EditCommand> SceneEditor::Edit(const std::string& label, const Change& change) {
  m_fault.clear();
  const std::string before = m_document->Text();
  Selection selected = *m_selection;
  if (!change(m_document->Json(), &selected)) {
    m_document->SetText(before);
    return nullptr;
  }
  const LevelProblems fatal = FatalProblems(*m_document);
  if (!fatal.empty()) {
    Refuse(fatal.front().text + ".");
    m_document->SetText(before);
    return nullptr;
  }
  BuildScene(*m_document, TilesText());
  Selection old = std::exchange(*m_selection, std::move(selected));
  return std::make_unique<SceneCommand>(m_document, label, Splice(before, m_document->Text()),
                                        std::move(old), m_selection);
}

std::unique_ptr<EditCommand> SceneEditor::Delete(const std::vector<ObjectPath>& paths) {
  return Edit("Delete " + Names(*m_document, paths), [&](Document& document, Selection* selected) {
    if (!AllExist(*m_document, paths)) return Refuse("There is nothing to delete.");
    for (const ObjectPath& path : TopmostFromTheEnd(paths)) TakeRecord(document, path);
    selected->clear();
    return true;
  });
}

std::unique_ptr<EditCommand> SceneEditor::Duplicate(const std::vector<ObjectPath>& paths, float x,
                                                    float y) {
  return Edit("Duplicate " + Names(*m_document, paths),
              [&](Document& document, Selection* selected) {
                if (!AllExist(*m_document, paths)) return Refuse("There is nothing to duplicate.");
                selected->clear();
                for (const ObjectPath& path : TopmostFromTheEnd(paths)) {
                  Json copy(RecordAt(document, path), document.GetAllocator());
                  MoveRecord(copy, x, y);
                  Json& list = ListBelow(document, ParentPath(path));
                  list.PushBack(copy, document.GetAllocator());
                  MoveLastTo(list, path.back() + 1);
                  for (ObjectPath& later : *selected) {
                    if (ParentPath(later) == ParentPath(path)) ++later.back();
                  }
                  selected->push_back(path);
                  ++selected->back().back();
                }
                return true;
              });
}

std::unique_ptr<EditCommand> SceneEditor::Insert(const ObjectPath& parent,
                                                 const std::vector<std::string>& records,
                                                 const std::string& label, std::size_t place) {
  return Edit(label, [&](Document& document, Selection* selected) {
    if (records.empty()) return Refuse("There is nothing to insert.");
    if (!parent.empty() && !m_document->Has(parent)) return Refuse("The parent is gone.");
    selected->clear();
    Json& list = ListBelow(document, parent);
    auto at = static_cast<rapidjson::SizeType>(std::min<std::size_t>(place, list.Size()));
    for (const std::string& text : records) {
      Document record(&document.GetAllocator());
      ParseExactly(&record, text);
      if (record.HasParseError() || !record.IsObject()) return Refuse("This is no object.");
      selected->push_back(parent);
      selected->back().push_back(at);
      list.PushBack(static_cast<Json&>(record), document.GetAllocator());
      MoveLastTo(list, at++);
    }
    return true;
  });
}

std::unique_ptr<EditCommand> SceneEditor::Replace(const ObjectPath& path, const std::string& record,
                                                  const std::string& label) {
  return Edit(label, [&](Document& document, Selection*) {
    if (!m_document->Has(path)) return Refuse("The object is gone.");
    Document fresh(&document.GetAllocator());
    fresh.Parse(record.c_str(), record.size());
    if (fresh.HasParseError() || !fresh.IsObject()) return Refuse("This is no object.");
    RecordAt(document, path) = static_cast<Json&>(fresh);
    return true;
  });
}

std::unique_ptr<EditCommand> SceneEditor::Reparent(const ObjectPath& child,
                                                   const ObjectPath& parent) {
  return Edit("Move " + Names(*m_document, {child}) + " in the tree", [&](Document& document,
                                                                          Selection* selected) {
    if (!m_document->Has(child)) return Refuse("The object is gone.");
    if (!parent.empty() && !m_document->Has(parent)) return Refuse("The parent is gone.");
    if (IsWithin(parent, child)) return Refuse("An object cannot stand below itself.");
    Json record = TakeRecord(document, child);
    // The parent's path, now that the child is gone before it.
    ObjectPath home = parent;
    const std::size_t level = child.size() - 1;
    if (home.size() > level && IsWithin(home, ParentPath(child)) && home[level] > child[level]) {
      --home[level];
    }
    Json& list = ListBelow(document, home);
    *selected = {home};
    selected->back().push_back(list.Size());
    list.PushBack(record, document.GetAllocator());
    return true;
  });
}

std::unique_ptr<EditCommand> SceneEditor::AddComponent(const ObjectPath& path,
                                                       const std::string& component,
                                                       const std::string& text) {
  return Edit("Add " + component, [&](Document& document, Selection*) {
    if (!m_document->Has(path)) return Refuse("The object is gone.");
    Json& record = RecordAt(document, path);
    if (record.HasMember(component.c_str())) {
      return Refuse("The object has a " + component + " already.");
    }
    auto& allocator = document.GetAllocator();
    Document fields(&allocator);
    ParseExactly(&fields, text);
    if (fields.HasParseError() || !fields.IsObject()) return Refuse("These are no fields.");
    record["components"].PushBack(Json(component.c_str(), allocator), allocator);
    record.AddMember(Json(component.c_str(), allocator), static_cast<Json&>(fields), allocator);
    return true;
  });
}

std::unique_ptr<EditCommand> SceneEditor::RemoveComponent(const ObjectPath& path,
                                                          const std::string& component) {
  return Edit("Remove " + component, [&](Document& document, Selection*) {
    if (!m_document->Has(path)) return Refuse("The object is gone.");
    Json& record = RecordAt(document, path);
    if (!record.HasMember(component.c_str())) {
      return Refuse("The object has no " + component + ".");
    }
    record.RemoveMember(component.c_str());
    Json& names = record["components"];
    for (auto name = names.Begin(); name != names.End(); ++name) {
      if (name->GetString() != component) continue;
      names.Erase(name);
      break;
    }
    return true;
  });
}

}  // namespace ZOVEngine
