// What is found in a text, for tests: each as "line:column T0000".

#ifndef TAVREL_TESTS_AUTHORING_FOUND_H
#define TAVREL_TESTS_AUTHORING_FOUND_H

#include <string>
#include <vector>

#include "authoring/Diagnostic.h"

namespace tavrel::authoring {

inline std::vector<std::string> placesOf(const Diagnostics& found) {
  std::vector<std::string> places;
  for (const Diagnostic& diagnostic : found.sorted()) {
    places.push_back(std::to_string(diagnostic.place.line) + ":" +
                     std::to_string(diagnostic.place.column) + " " + nameOf(diagnostic.code));
  }
  return places;
}

}  // namespace tavrel::authoring

#endif  // TAVREL_TESTS_AUTHORING_FOUND_H
