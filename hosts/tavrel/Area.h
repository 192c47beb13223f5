// A part of the screen that something is drawn in.

#ifndef TAVREL_HOSTS_TAVREL_AREA_H
#define TAVREL_HOSTS_TAVREL_AREA_H

namespace tavrel {

/// In rows and columns of the terminal. A height of 0 shows nothing.
struct Area {
  int top;
  int left;
  int height;
  int width;
};

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_AREA_H
