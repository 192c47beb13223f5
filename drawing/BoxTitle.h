// What a screen reader says of a box.

#ifndef TAVREL_DRAWING_BOXTITLE_H
#define TAVREL_DRAWING_BOXTITLE_H

#include <string>

#include "drawing/ReadingOrder.h"

namespace tavrel::drawing {

/// The box's text, what its exits lead to, the flowchart it leads into, and where it is:
/// "12+? Yes: Open. No: Pass. On the path. You are here."
std::string titleOf(const ReadBox& read, bool isPlace);

}  // namespace tavrel::drawing

#endif  // TAVREL_DRAWING_BOXTITLE_H
