// Which element stands where: built once a flowchart is read, asked at every step.

#include "engine/RowIndex.h"

#include <limits>

#include "engine/CTavrel.h"
#include "engine/CheckedAccess.h"

namespace tavrel::engine {
namespace {

constexpr std::uint64_t mostRows = 16'777'216;
constexpr std::size_t mostElements = std::numeric_limits<std::int32_t>::max();

}  // namespace

bool canBeIndexed(std::int32_t minY, std::int32_t maxY, std::size_t elementCount) {
  const auto rows = static_cast<std::uint64_t>(std::int64_t{maxY} - minY + 1);
  return rows <= mostRows && elementCount <= mostElements;
}

}  // namespace tavrel::engine

using tavrel::engine::at;

void CTavrel::mBuildFCFindHelper(const std::int32_t& fc) {
  tavrel::engine::RowIndex index = tavrel::engine::buildRowIndex(
      at(m_screenElements, fc), &sScreenElement::m_y, at(m_minY, fc), at(m_maxY, fc));
  at(m_rowElementIndices, fc) = std::move(index.elementIndices);
  at(m_rowStarts, fc) = std::move(index.rowStarts);
}

std::int32_t CTavrel::mFind(const std::int32_t& fc, const std::int32_t& x,
                            const std::int32_t& y) const {
  const std::vector<std::int32_t>& starts = at(m_rowStarts, fc);
  const std::int64_t row = std::int64_t{y} - at(m_minY, fc);
  if (row < 0 || row + 1 >= static_cast<std::int64_t>(starts.size())) return -1;

  const std::vector<sScreenElement>& elements = at(m_screenElements, fc);
  const std::vector<std::int32_t>& indices = at(m_rowElementIndices, fc);
  const std::int32_t end = at(starts, row + 1);
  for (std::int32_t k = at(starts, row); k < end; ++k) {
    const std::int32_t index = at(indices, k);
    if (at(elements, index).m_x == x) return index;
  }
  return -1;
}
