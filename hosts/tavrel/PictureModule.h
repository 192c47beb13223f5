// The module that makes PNG and PDF pictures, loaded when it is needed.

#ifndef TAVREL_HOSTS_TAVREL_PICTUREMODULE_H
#define TAVREL_HOSTS_TAVREL_PICTUREMODULE_H

#include "drawing/Pictures.h"

namespace tavrel {

/// What the module can do. It is loaded by the first call, from where it lies relative to the
/// program, and stays. Throws Failure when it can't be loaded.
const PictureMakers& pictureMakers();

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_PICTUREMODULE_H
