#include "editor/canvas/picking.h"

#include <algorithm>
#include <cmath>

#include "editor/canvas/objectbounds.h"

namespace ZOVEngine {
namespace {

/// An object under the mouse and its precedence among them; the larger is picked first.
struct Hit {
  int precedence = 0;
  std::uint32_t place = 0;
};

bool IsUnit(const SceneEntry& entry, std::uint32_t place) {
  return entry.unit == place;
}

bool IsCandidate(const SceneEntry& entry, std::uint32_t place, const Selection& selection,
                 PickDepth depth) {
  if (entry.is_level || entry.transform == nullptr) return false;
  if (entry.is_interface || (entry.is_paint && depth == PickDepth::kUnit)) {
    return std::find(selection.begin(), selection.end(), entry.path) != selection.end();
  }
  // A part without an image stands for nothing that the author sees.
  return depth == PickDepth::kPart || IsUnit(entry, place) || HasVisibleImage(entry);
}

int Precedence(const SceneEntry& entry, std::uint32_t place, PickDepth depth) {
  if (depth == PickDepth::kPart) return HasVisibleImage(entry) ? 1 : 0;
  if (!IsUnit(entry, place)) return 0;
  return HasVisibleImage(entry) || entry.collider != nullptr ? 1 : 2;
}

std::vector<Hit> FindHits(const SceneIndex& index, const Selection& selection,
                          const Vector3D& point, float units_per_pixel, PickDepth depth) {
  std::vector<Hit> hits;
  const std::vector<SceneEntry>& entries = index.Entries();
  for (std::uint32_t i = 0; i < entries.size(); ++i) {
    if (!IsCandidate(entries[i], i, selection, depth)) continue;
    if (!IsHit(entries[i], point, units_per_pixel)) continue;
    hits.push_back({Precedence(entries[i], i, depth), i});
  }
  std::sort(hits.begin(), hits.end(), [](const Hit& a, const Hit& b) {
    return a.precedence != b.precedence ? a.precedence > b.precedence : a.place > b.place;
  });
  return hits;
}

/// Whether the upright rectangle around `bounds` reaches into the one between the two corners.
bool ReachesInto(const ObjectBounds& bounds, const Vector3D& least, const Vector3D& most) {
  const float cosine = std::abs(std::cos(bounds.angle)), sine = std::abs(std::sin(bounds.angle));
  const float width = bounds.half_width * cosine + bounds.half_height * sine;
  const float height = bounds.half_width * sine + bounds.half_height * cosine;
  return bounds.middle.x + width >= least.x && bounds.middle.x - width <= most.x &&
         bounds.middle.y + height >= least.y && bounds.middle.y - height <= most.y;
}

bool IsOnGround(const SceneEntry& entry, std::uint32_t place) {
  return IsUnit(entry, place) && !entry.is_level && !entry.is_interface &&
         entry.transform != nullptr;
}

}  // namespace

std::vector<const SceneEntry*> PickAt(const SceneIndex& index, const Selection& selection,
                                      const Vector3D& point, float units_per_pixel,
                                      PickDepth depth) {
  std::vector<const SceneEntry*> targets;
  for (const Hit& hit : FindHits(index, selection, point, units_per_pixel, depth)) {
    const SceneEntry& entry = index.Entries()[hit.place];
    const bool whole = depth == PickDepth::kUnit && !entry.is_interface;
    const SceneEntry* target = whole ? &index.Entries()[entry.unit] : &entry;
    if (std::find(targets.begin(), targets.end(), target) == targets.end()) {
      targets.push_back(target);
    }
  }
  return targets;
}

const SceneEntry* PickBelow(const std::vector<const SceneEntry*>& targets,
                            const ObjectPath& present) {
  if (targets.empty()) return nullptr;
  for (std::size_t i = 0; i + 1 < targets.size(); ++i) {
    if (targets[i]->path == present) return targets[i + 1];
  }
  return targets.front();
}

Selection PickInBox(const SceneIndex& index, const Vector3D& from, const Vector3D& to,
                    float units_per_pixel) {
  const Vector3D least(std::min(from.x, to.x), std::min(from.y, to.y), 0.0f);
  const Vector3D most(std::max(from.x, to.x), std::max(from.y, to.y), 0.0f);
  Selection picked;
  const std::vector<SceneEntry>& entries = index.Entries();
  for (std::uint32_t i = 0; i < entries.size(); ++i) {
    if (!IsOnGround(entries[i], i) || entries[i].is_paint) continue;
    if (ReachesInto(FindBounds(entries[i], units_per_pixel), least, most)) {
      picked.push_back(entries[i].path);
    }
  }
  return picked;
}

Selection PickAll(const SceneIndex& index) {
  Selection picked;
  const std::vector<SceneEntry>& entries = index.Entries();
  for (std::uint32_t i = 0; i < entries.size(); ++i) {
    if (IsOnGround(entries[i], i)) picked.push_back(entries[i].path);
  }
  return picked;
}

}  // namespace ZOVEngine
