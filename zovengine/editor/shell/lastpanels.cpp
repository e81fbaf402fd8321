#include "editor/shell/lastpanels.h"

#include <utility>

namespace ZOVEngine {
namespace {

/// Of records without gaps, or with gaps that Dear ImGui clears.
template <class T>
void Append(const T* records, int count, std::vector<std::byte>* out) {
  const auto* begin = reinterpret_cast<const std::byte*>(records);
  out->insert(out->end(), begin, begin + static_cast<std::size_t>(count) * sizeof(T));
}

template <class T>
void Append(const ImVector<T>& records, std::vector<std::byte>* out) {
  Append(&records.Size, 1, out);
  Append(records.Data, records.Size, out);
}

}  // namespace

bool LastPanels::Take(const ImDrawData& data) {
  m_next.clear();
  Append(&data.DisplaySize, 1, &m_next);
  for (int i = 0; i < data.CmdListsCount; ++i) {
    const ImDrawList& list = *data.CmdLists[i];
    Append(list.CmdBuffer, &m_next);
    Append(list.VtxBuffer, &m_next);
    Append(list.IdxBuffer, &m_next);
  }
  std::swap(m_last, m_next);
  return m_last != m_next;
}

}  // namespace ZOVEngine
