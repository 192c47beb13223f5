// A host as short as can be: follows a string of answers through two flowcharts.

#include <Tavrel/Tavrel.h>

#include <iostream>

int main(int, char** arguments) {
  Tavrel navigator(arguments[1]);
  std::cout << "Tavrel " << TavrelVersionString << ", " << navigator.flowchartTitles().size()
            << " flowcharts\n";
  navigator.startNewPathForFlowchartAtIndexYesNoString(0, "nyn");
  for (int step = 0; step < 4; ++step, navigator.moveAlongPath()) {
    const auto [name, x, y] = navigator.currentLocation();
    std::cout << name << ' ' << x << ',' << y << ' '
              << navigator.currentElement().debugDescription() << '\n';
  }
}
