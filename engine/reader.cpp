// From a flowchart's file into the engine.
//
// Everything is made beside the engine first and moved in at the end, so that a
// read for which memory doesn't suffice has changed nothing.

#include "engine/CTavrel.h"

#include <string>
#include <utility>
#include <vector>

#include "engine/ChartFile.h"
#include "engine/CheckedAccess.h"
#include "engine/FileBytes.h"
#include "engine/FlowchartContents.h"

using namespace tavrel::engine;

void CTavrel::mReadFVFileIfNotAlready(const std::int32_t& fc) { takeOver(fc, contentsToRead(fc)); }

// What the flowchart's file has to give; nothing if it is read already or there is
// no such file.
FlowchartContents CTavrel::contentsToRead(std::int32_t fc) const {
  const Bounds bounds = {at(m_minX, fc), at(m_maxX, fc), at(m_minY, fc), at(m_maxY, fc)};
  const FlowchartContents nothing = {{}, {}, {}, bounds, Failure::none};
  if (at(m_screenElements, fc).size() > 1) return nothing;
  const auto bytes = FileBytes::read(m_directory + at(m_flowchartFileNames, fc) + ".fv");
  return bytes ? contentsOf(readChartFile(bytes->view()), bounds) : nothing;
}

// Moves only, and failures made in advance: nothing here can want memory.
void CTavrel::takeOver(std::int32_t fc, FlowchartContents&& contents) {
  if (contents.intro) at(m_flowchartIntros, fc) = std::move(*contents.intro);
  if (contents.elements) {
    at(m_screenElements, fc) = std::move(*contents.elements);
    at(m_rowCells, fc).clear();
  }
  if (contents.rowIndex) takeOver(fc, std::move(*contents.rowIndex));
  at(m_minX, fc) = contents.bounds.minX;
  at(m_maxX, fc) = contents.bounds.maxX;
  at(m_minY, fc) = contents.bounds.minY;
  at(m_maxY, fc) = contents.bounds.maxY;
  if (contents.failure == Failure::outOfRange) throwOutOfRange();
  if (contents.failure == Failure::length) throwLengthError();
}

std::vector<std::string> CTavrel::mGetFlowchartIntro(const std::int32_t& fc) {
  static const std::vector<std::string> noSuchFlowchartVector = {"No such flowchart"};
  if (!isFlowchart(fc)) return noSuchFlowchartVector;
  mReadFVFileIfNotAlready(fc);
  return at(m_flowchartIntros, fc);
}
