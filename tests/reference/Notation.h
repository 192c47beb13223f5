// Requests in the notation of the conversations.

#ifndef TAVREL_TESTS_REFERENCE_NOTATION_H
#define TAVREL_TESTS_REFERENCE_NOTATION_H

#include <string>

#include "tests/reference/Dialogue.h"

namespace tavrel::reference {

struct Form {
  What what;
  const char* facadeName;  ///< empty where the client interface doesn't have it
  const char* engineName;  ///< empty where the engine doesn't have it
  const char* arguments;   ///< a letter each: integer, string, name; p: both pointers
};

const Form& formOf(What what);
const char* nameOf(What what, Front front);

/// The line of the request; of a chart, its lines.
std::string lineOf(const Request& request, Front front);

}  // namespace tavrel::reference

#endif  // TAVREL_TESTS_REFERENCE_NOTATION_H
