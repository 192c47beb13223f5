// A string of answers as a person types it.

#ifndef TAVREL_HOSTS_TAVREL_ANSWERS_H
#define TAVREL_HOSTS_TAVREL_ANSWERS_H

#include <string>

namespace tavrel {

/// The answers as the navigator takes them, y and n in lower case. Throws Failure
/// at the first letter that is neither.
std::string checkedAnswers(const std::string& answers);

/// "2 answers were left over: 'yn'". REQUIRES: there are some.
std::string leftOver(const std::string& answers);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_ANSWERS_H
