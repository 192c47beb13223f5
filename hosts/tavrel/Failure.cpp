#include "hosts/tavrel/Failure.h"

#include <iostream>

#include "hosts/tavrel/Words.h"
#include "text/Text.h"

namespace tavrel {

int tellFailure(const std::string& what) {
  std::cerr << "tavrel: " << printable(what, localeCharset()) << '\n';
  return failureStatus;
}

}  // namespace tavrel
