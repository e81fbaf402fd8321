#pragma once

#include <string>
#include <utility>

#include "editor/levelrules.h"
#include "editor/levelrulesview.h"

namespace ZOVEngine {

/// Collects the problems of one level, under the names of rules that LevelRules has.
class LevelReport {
 public:
  /// A problem of an object; `fault` follows its title.
  void Add(const char* rule, const ObjectView& object, const std::string& fault);
  /// A problem of a whole file; `fault` is the whole sentence.
  void Add(const char* rule, LevelFile file, const std::string& fault);

  LevelProblems Take() { return std::move(m_problems); }

 private:
  LevelProblems m_problems;
};

// The rules by what they look at. Each adds what it finds and needs nothing of the others.

/// Whether the loader can read the files: their JSON, records, components and the types of fields.
void CheckForms(const LevelView& level, LevelReport* report);
/// What the level as a whole has: the object that runs it, its camera, both sides, its files.
void CheckWhole(const LevelView& level, LevelReport* report);
/// Units, their parts, patrols and shots.
void CheckUnits(const LevelView& level, LevelReport* report);
/// What objects need in order to be drawn, heard and stepped, and the names that they use.
void CheckParts(const LevelView& level, const KnownAssets& known, LevelReport* report);
/// Bodies that would never rest.
void CheckBodies(const LevelView& level, LevelReport* report);
/// The pieces that the interface of a level consists of.
void CheckInterface(const LevelView& level, const KnownAssets& known, LevelReport* report);
/// The map and its tiles, and what stands on them.
void CheckMap(const LevelView& level, LevelReport* report);

}  // namespace ZOVEngine
