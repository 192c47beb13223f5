#include "tests/failures/Situation.h"
#include "tests/failures/SmallCharts.h"

namespace tavrel {

const std::vector<Situation>& situations() {
  const std::string answers = "yyynnnyyynnnyyynnnyyynnn";  // more than any flowchart takes
  static const std::vector<Situation> all = {
      {"a new one", {}},
      {"a flowchart that is selected", {resetCall(opening)}},
      {"the root of a path", {startCall(opening, answers)}},
      {"the middle of a path", {startCall(opening, answers), alongPathCall()}},
      {"the end of a path",
       {startCall(opening, answers), alongPathCall(), alongPathCall(), alongPathCall()}},
      {"a path that another flowchart was selected over",
       {startCall(opening, answers), resetCall(respNT)}},
      {"a marked flowchart of one cell", {startCall(leben, "n"), startCall(leben, answers)}},
      {"a link to no flowchart", {startCall(forced, "n"), alongPathCall()}},
      {"a box beside an exit into nothing", {resetCall(forced), moveNoCall()}},
      {"no box", {resetCall(forced), moveYesCall()}},
      {"a marked placeholder", {startCall(opening, answers)}, true},
      {"a flowchart without elements", {startCall(slam, answers)}},
      {"a flowchart cut short", {startCall(pgf, answers)}},
  };
  return all;
}

}  // namespace tavrel
