#include "facade/Tavrel.h"

const char TavrelVersionString[] = TAVREL_VERSION;
const double TavrelVersionNumber = TAVREL_VERSION_NUMBER;
