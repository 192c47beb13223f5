// Random dialogues: a few charts, and requests that walk them.

#include <string>
#include <vector>

#include "tests/reference/Comparison.h"
#include "tests/reference/RandomChart.h"
#include "tests/unit/Catalogue.h"

namespace tavrel::reference {
namespace {

constexpr int mostRequests = 900;
constexpr int chartsInUse = 4;

class DialogueMaker {
 public:
  explicit DialogueMaker(Choices& choices) : choices_(choices), chart_(choices, names_) {}

  Dialogue make() {
    dialogue_.front = choices_.once(3) ? Front::engine : Front::facade;
    chooseCharts();
    makeNavigator(0);
    const int count = choices_.below(mostRequests);
    dialogue_.requests.reserve(static_cast<std::size_t>(count) + 16);
    select();
    for (int i = 0; i < count; ++i) addRequest();
    return std::move(dialogue_);
  }

 private:
  bool isFacade() const { return dialogue_.front == Front::facade; }

  Request& add(What what) {
    dialogue_.requests.push_back({what});
    dialogue_.requests.back().navigator = asked_;
    return dialogue_.requests.back();
  }
  void add(What what, std::int64_t number) { add(what).numbers[0] = number; }

  void chooseCharts() {
    for (int i = 0; i < chartsInUse; ++i) {
      indices_.push_back(choices_.once(4) ? 0 : choices_.below(45));
      names_.push_back(catalogue[static_cast<std::size_t>(indices_.back())].fileName);
    }
    for (const std::string& name : names_) {
      if (!choices_.once(12)) write(name);
    }
  }

  void write(const std::string& name) {
    Request& request = add(What::writeChart);
    request.text = name;
    request.file = chart_.file();
  }

  void makeNavigator(std::uint8_t which) {
    asked_ = which;
    navigators_ = std::max(navigators_, which + 1);
    const bool isOdd = choices_.once(12);
    add(What::makeNavigator).text =
        std::string("{here}") + (isOdd                            ? choices_.from({"", "//", "/./"})
                                 : isFacade() && choices_.once(2) ? ""
                                                                  : "/");
  }

  void addRequest() {
    if (navigators_ > 1 && choices_.once(16)) asked_ ^= 1;
    const int kind = choices_.below(128);
    if (kind < 24) {
      add(What::moveAlongPath);
    } else if (kind < 62) {
      move();
    } else if (kind < 78) {
      select();
    } else if (kind < 118) {
      ask();
    } else if (kind < 125) {
      changeFiles();
    } else {
      renewNavigator();
    }
  }

  void move() {
    const What moves[] = {What::moveYes,   What::moveYes,    What::moveNo,
                          What::moveNo,    What::moveXPlus,  What::moveXMinus,
                          What::moveYPlus, What::moveYMinus, What::moveToRoot};
    const int kind = choices_.below(12);
    if (kind < 9) {
      add(moves[kind]);
    } else if (!isFacade()) {
      moveByEngine();
    } else if (kind < 11) {
      add(What::moveBack);
    } else {
      add(What::moveWithDirection, direction());
    }
  }

  void moveByEngine() {
    switch (choices_.below(4)) {
      case 0:
        return add(What::readChart, index());
      case 1:
        add(What::preparePath);
        return;
      case 2:
        return add(What::buildIndex, index());
      default:
        Request& request = add(What::find);
        request.numbers = {index(), coordinate(), coordinate(), 0};
        return;
    }
  }

  void select() {
    const int kind = choices_.below(8);
    if (kind == 7) return add(What::intro, index());
    if (kind >= 4) return add(What::reset, index());
    const std::int64_t which = index();
    Request& request = add(What::startNewPath);
    request.numbers[0] = which;
    for (int left = choices_.below(14); left > 0; --left) {
      request.text +=
          choices_.once(30) ? choices_.from({'Y', 'N', '\0', ' '}) : choices_.from({'y', 'n'});
    }
  }

  void ask() {
    switch (choices_.below(16)) {
      case 0:
      case 1:
      case 2:
        return askForRectangle();
      case 3:
      case 4:
      case 5:
      case 6: {
        Request& request = add(What::elementAt);
        request.numbers = {coordinate(), coordinate(), 0, 0};
        return;
      }
      case 7:
        add(What::allElements);
        return;
      case 8:
        add(What::bounds);
        return;
      case 9:
      case 10:
        add(What::commentary);
        return;
      case 11:
        add(What::locationTriple);
        return;
      case 12:
        return askForName();
      default:
        return isFacade() ? askOfFacade()
                          : add(choices_.from({What::stepX, What::stepY}), direction());
    }
  }

  void askOfFacade() {
    switch (choices_.below(8)) {
      case 0: {
        Request& request = add(What::location);
        request.numbers = {choices_.below(2), choices_.below(2), 0, 0};
        return;
      }
      case 1:
        return add(What::reverse, direction());
      case 2:
      case 3:
        add(What::keepCurrent);
        return;
      case 4:
        add(What::keptProperties);
        return;
      case 5:
        add(What::keptDescription);
        return;
      default:
        add(What::currentElement);
        return;
    }
  }

  void askForRectangle() {
    Request& request = add(What::elementsIn);
    for (std::int64_t& edge : request.numbers) edge = coordinate();
    auto& [minX, maxX, minY, maxY] = request.numbers;
    const int kind = choices_.below(8);
    if (kind < 4 && minX > maxX) std::swap(minX, maxX);
    if (kind < 4 && minY > maxY) std::swap(minY, maxY);
    if (kind == 4) request.numbers = {-9, 9, -9, 9};
    if (kind == 5) request.numbers = {minX, minX, minY, minY};
    if (kind == 6) request.numbers = {-2000000000, 2000000000, -2147483647, 2147483647};
  }

  void askForName() {
    if (choices_.once(8)) {
      add(What::titles);
      return;
    }
    const What what =
        isFacade() && choices_.once(2) ? What::optionalIndexOfName : What::indexOfName;
    const CatalogueEntry& entry = choices_.from(catalogue);
    const int kind = choices_.below(8);
    add(what).text = kind < 4   ? entry.fileName
                     : kind < 6 ? entry.title
                                : choices_.from({"", "opening", "Opening ", "PGF.fv"});
  }

  void changeFiles() {
    const std::string& name = choices_.from(names_);
    const int kind = choices_.below(16);
    if (kind == 14) {
      add(What::removeChart).text = name;
    } else if (kind == 15) {
      add(What::makeDirectory).text = name;
    } else {
      write(name);
    }
  }

  /// New navigators, which end the old ones.
  void renewNavigator() {
    if (choices_.once(3)) makeNavigator(static_cast<std::uint8_t>(choices_.below(2)));
  }

  std::int64_t index() {
    if (!choices_.once(12)) return choices_.from(indices_);
    switch (choices_.below(4)) {
      case 0:
        return choices_.from<std::int64_t>({-1, 45, -2147483648, 2147483647});
      case 1:
        return isFacade() ? choices_.from(indices_) + 4294967296 * choices_.between(-2, 2) : 44;
      case 2:
        return isFacade() ? 2147483648 : -44;
      default:
        return choices_.below(45);
    }
  }

  std::int64_t coordinate() {
    if (!choices_.once(24)) return choices_.between(-3, 3);
    if (isFacade() && choices_.once(3)) return choices_.between(-2, 2) + 4294967296;
    return choices_.from<std::int64_t>({-100, 100, 2147483647, -2147483648, 1000, 0});
  }

  std::int64_t direction() {
    if (!choices_.once(4)) return choices_.below(5);
    return choices_.from<std::int64_t>({-1, 7, 5, 2147483647, isFacade() ? 4294967295 : -2});
  }

  Choices& choices_;
  Dialogue dialogue_;
  std::vector<std::string> names_;
  std::vector<std::int64_t> indices_;
  RandomChart chart_;
  std::uint8_t asked_ = 0;
  int navigators_ = 0;
};

}  // namespace

Dialogue dialogueFrom(Choices& choices) { return DialogueMaker(choices).make(); }

}  // namespace tavrel::reference
