// Questions that no condition answers, put to the person at the terminal.

#ifndef TAVREL_HOSTS_TAVREL_JUDGE_H
#define TAVREL_HOSTS_TAVREL_JUDGE_H

#include "hands/HandWalk.h"

namespace tavrel {

/// Asks on standard error and reads y or n from standard input, where both are a terminal; gives
/// no answer otherwise, or at the end of the input.
hands::HandWalk::Judge askOnTerminal();

}  // namespace tavrel

#endif  // TAVREL_HOSTS_TAVREL_JUDGE_H
