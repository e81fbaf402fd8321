#include "objects/tablewalk.h"

namespace ZOVEngine {

WalkCopy::WalkCopy(const ComponentManagerBase& table, Entries* memory)
    : m_memory(memory), m_entries(std::move(*memory)) {
  m_entries.assign(table.Entries().begin(), table.Entries().end());
}

}  // namespace ZOVEngine
