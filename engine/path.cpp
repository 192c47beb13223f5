// Selecting a flowchart, and laying a string of answers onto it.

#include "engine/CTavrel.h"

#include <stdexcept>
#include <utility>

#include "engine/CheckedAccess.h"
#include "engine/FlowchartContents.h"

using namespace tavrel::engine;

void CTavrel::mSetStartLocation(const std::int32_t& index) {
  if (!isFlowchart(index)) throw std::out_of_range("CTavrel::mSetStartLocation()");
  m_currentFlowchartIndex = index;
  mReadFVFileIfNotAlready(m_currentFlowchartIndex);
  putCursorOnRoot();
}

// All that may want memory comes before anything but the selection changes.
void CTavrel::mStartNewPath(const std::int32_t& index, const std::string& answers) {
  if (!isFlowchart(index)) throw std::out_of_range("CTavrel::mStartNewPath()");
  std::string path = answers;
  m_currentFlowchartIndex = index;
  // Every prepared path marks element 0, so without a mark there no other is looked for.
  const bool hasMarks = at(currentElements(), 0).m_isOnPath;
  FlowchartContents contents = contentsToRead(index);
  if (hasMarks) clearMarks();
  takeOver(index, std::move(contents));
  m_path = std::move(path);
  mPreparePath();
}

void CTavrel::mPreparePath() {
  putCursorOnRoot();
  std::string answers = std::move(m_path);
  m_path.clear();
  currentElement().m_isOnPath = true;
  std::size_t laid = 0;
  while (laid < answers.size() && layAnswer(answers[laid])) ++laid;
  answers.erase(0, laid);
  m_path = std::move(answers);
  putCursorOnRoot();
}

void CTavrel::putCursorOnRoot() {
  m_currentLocation.m_name = at(m_flowchartFileNames, m_currentFlowchartIndex);
  m_currentLocation.m_y = 0;
  m_currentLocation.m_x = 0;
  m_currentElementIndex = 0;
}

void CTavrel::clearMarks() {
  for (sScreenElement& element : at(m_screenElements, m_currentFlowchartIndex)) {
    element.m_isOnPath = false;
  }
}

// Marks the line along the answer's exit and the box at its end, and goes there.
// False, with nothing done, where the box has no such exit.
bool CTavrel::layAnswer(char answer) {
  const sScreenElement& box = currentElement();
  const std::int32_t exit = answer == 'y' ? box.m_yesDir : box.m_noDir;
  if (exit == eNoDirection) return false;
  followLine(exit, Line::forward, Marks::set);
  return true;
}
