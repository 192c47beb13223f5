// Where the bytes of an expression stand in its source.

#ifndef TAVREL_AUTHORING_EXPRESSIONPLACE_H
#define TAVREL_AUTHORING_EXPRESSIONPLACE_H

#include <cstddef>

#include "authoring/ChartSource.h"
#include "authoring/SourceFile.h"

namespace tavrel::authoring {

/// The place of a byte of an expression's text in the file that it was read from, whether it
/// stands there plain, in quotes or in a block, and on however many lines. The end of the text is
/// just behind its last byte, as is all beyond. Where an escape in double quotes stands for
/// another character than \" or \\, the places behind it aren't known: there it is that of the
/// expression. Cost: the length of the text in the file.
Place placeIn(const SourceFile& file, const SourceExpression& expression, std::size_t byte);

}  // namespace tavrel::authoring

#endif  // TAVREL_AUTHORING_EXPRESSIONPLACE_H
