#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "core/base/noncopyable.h"

namespace ZOVEngine {

/// One gesture of the author, done already, that can be taken back and done again.
///
/// Undo leaves the level as it was before the gesture, to the byte of its saved files, and Redo as
/// it was after it. Both are called in turns, Undo first.
class EditCommand : private NonCopyable {
 public:
  EditCommand() = default;
  virtual ~EditCommand() = default;

  virtual void Undo() = 0;
  virtual void Redo() = 0;
  /// What was done, for the history list: "Move tank", "Paint 12 tiles".
  virtual std::string Label() const = 0;
};

/// The gestures of a session in their order, and how many of them are in force.
///
/// A new gesture drops those that were taken back. Owns the commands. Nothing is dropped for its
/// age: a command holds what it changed, so an hour's work is a few megabytes.
class History {
 public:
  /// Takes a gesture that is done.
  void Add(std::unique_ptr<EditCommand> command);
  /// Take the last gesture back, or do the next one again; false if there is none.
  bool Undo();
  bool Redo();
  /// Undoes or redoes until `position` gestures are in force; a larger one means all.
  void GoTo(std::size_t position);
  /// Forgets everything; the level counts as saved.
  void Clear();
  /// The present state is that of the files.
  void MarkSaved();

  bool IsSaved() const { return m_saved == m_position; }
  /// The number of gestures in force.
  std::size_t Position() const { return m_position; }
  std::size_t Size() const { return m_commands.size(); }
  std::string Label(std::size_t index) const { return m_commands.at(index)->Label(); }
  /// Grows with every change of the level, undoing included.
  std::size_t Changes() const { return m_changes; }

 private:
  static constexpr std::size_t kNever = static_cast<std::size_t>(-1);

  std::vector<std::unique_ptr<EditCommand>> m_commands;
  std::size_t m_position = 0;
  std::size_t m_saved = 0;  ///< the position that was saved, or kNever
  std::size_t m_changes = 0;
};

}  // namespace ZOVEngine
