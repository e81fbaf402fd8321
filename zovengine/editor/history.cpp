#include "editor/history.h"

#include <algorithm>
#include <utility>

namespace ZOVEngine {

void History::Add(std::unique_ptr<EditCommand> command) {
  m_commands.resize(m_position);
  if (m_saved != kNever && m_saved > m_position) m_saved = kNever;
  m_commands.push_back(std::move(command));
  ++m_position;
  ++m_changes;
}

bool History::Undo() {
  if (m_position == 0) return false;
  m_commands[--m_position]->Undo();
  ++m_changes;
  return true;
}

bool History::Redo() {
  if (m_position == m_commands.size()) return false;
  m_commands[m_position++]->Redo();
  ++m_changes;
  return true;
}

void History::GoTo(std::size_t position) {
  const std::size_t wanted = std::min(position, m_commands.size());
  while (m_position > wanted) Undo();
  while (m_position < wanted) Redo();
}

void History::Clear() {
  m_commands.clear();
  m_position = m_saved = 0;
  ++m_changes;
}

void History::MarkSaved() {
  m_saved = m_position;
}

}  // namespace ZOVEngine
