#include "tests/failures/FailingMemory.h"

bool tavrel::filesNeedMemory() { return false; }
