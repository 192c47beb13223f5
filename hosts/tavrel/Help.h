// The help page of a walk on the screen.

#ifndef TAVREL_HOSTS_TAVREL_HELP_H
#define TAVREL_HOSTS_TAVREL_HELP_H

#include <string>
#include <vector>

namespace tavrel {

/// What the keys do and what the drawing shows, in lines of at most `width`
/// columns where that leaves room for words.
std::vector<std::string> helpLines(int width);

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_HELP_H
