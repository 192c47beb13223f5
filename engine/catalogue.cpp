// The fixed catalogue of flowcharts, and an engine that has read none of them.

#include "engine/CTavrel.h"

#include <algorithm>
#include <array>

#include "engine/Failures.h"
#include "engine/RowIndex.h"

namespace {

struct CatalogueEntry {
  const char* fileName;
  const char* title;
};

// The order is the flowcharts' identity: an entry's place is its index everywhere.
constexpr std::array<CatalogueEntry, CTavrel::flowchartCount> catalogue = {{
    {"Opening", "Deciding on an Opening Bid"},
    {"AOpening", "Deciding on an Opening Bid (Acol)"},
    {"LOpening", "Deciding on an Opening Bid (La Majeure 5eme)"},
    {"FOpening", "Deciding on an Opening Bid (Forum D)"},
    {"Overcall", "Bidding or Doubling After an Opening Bid on Your Right"},
    {"RespSuit", "Responding to an Opening Suit Bid"},
    {"RespNT", "Responding to an Opening No Trump Bid"},
    {"Leben", "Lebensohl"},
    {"Jacoby", "Rebids and Continuations After a Jacoby Transfer"},
    {"DblResp", "Responding to a Take-Out Double"},
    {"Unusual", "Responding to, and Rebidding after, a Two-Suited Bid"},
    {"RespOver", "Responding to Your Partner's Overcall"},
    {"Balance", "Balancing After an Opening Bid and Two Passes"},
    {"OpenRbd", "Opener's Rebid"},
    {"Support", "Support Doubles"},
    {"Forc1NT", "Response and Rebid After a Forcing 1NT"},
    {"Reverse", "Response and Rebid After a Reverse"},
    {"Inverted", "Inverted Minor Raise Auctions"},
    {"DblRebid", "Rebidding After a Take-Out Double"},
    {"Reopen", "Responding to a Reopening Double"},
    {"Forced", "Bidding After Partner Has Made a Forcing Bid"},
    {"Constr1", "Bidding When Partner Has Bid (I)"},
    {"Constr2", "Bidding When Partner Has Bid (II)"},
    {"Solo", "Bidding When Partner Has Passed Throughout"},
    {"Slam", "Bidding When a Slam is Likely"},
    {"Convresp", "Responding to, and Rebidding after, Conventions (I)"},
    {"Convres2", "Responding to, and Rebidding after, Conventions (II)"},
    {"Stayman", "Rebidding After a Response to Stayman 2C"},
    {"Cappelle", "Response and Rebid After Cappelletti"},
    {"POpen", "Deciding on an Opening Bid (Precision)"},
    {"PDefense", "Defending against a Precision Opening"},
    {"PResp", "Responding to a Precision 1C Opening Bid"},
    {"PInter", "Responding to a Precision 1C Opening after Interference"},
    {"P2C", "Responding to a Precision 2C Opening Bid"},
    {"P2D", "Responding to a Precision 2D Opening Bid"},
    {"P1C1D", "Continuations in a Precision 1C-1D Auction"},
    {"PPos", "Opener's Rebid after a Precision 1C Positive Response"},
    {"P1C1NT", "Continuations in a Precision 1C-1NT Auction"},
    {"P1C2NT", "Precision 1C-2NT and 1C-3NT Auctions"},
    {"PJumps", "Opener's Rebid after a Precision 1C Jump Response"},
    {"P1DRebid", "Opener's Rebid after a Precision 1D Opening Bid"},
    {"PRes1C1D", "Responder's Rebid after a 1C-1D Precision Auction"},
    {"PTrAsk", "Precision Asking Bids"},
    {"PCuebid", "Cue Bids in a Precision Auction"},
    {"PGF", "Continuations in Game Forcing Precision Auctions"},
}};

std::vector<std::string> column(const char* CatalogueEntry::*member) {
  std::vector<std::string> texts;
  texts.reserve(catalogue.size());
  for (const CatalogueEntry& entry : catalogue) texts.emplace_back(entry.*member);
  return texts;
}

// The one box that a flowchart shows until its file has been read.
sScreenElement placeholder() {
  sScreenElement box;
  box.m_isNode = true;
  box.m_boxText = {"Flowchart not read"};
  box.m_commentText = {"Unable to read this flowchart."};
  box.m_yesDir = box.m_noDir = eNoDirection;
  box.m_directionInto = box.m_directionOutOf = eNoDirection;
  return box;
}

const std::vector<std::string>& introOfUnreadFlowchart() {
  static const std::string noFlowchartIntro = "Unable to read this flowchart intro.";
  static const std::vector<std::string> vectorOfCouldNotReadString(1, noFlowchartIntro);
  return vectorOfCouldNotReadString;
}

}  // namespace

CTavrel::CTavrel(const std::string& directory)
    : m_screenElements(catalogue.size(), {placeholder()}),
      m_rowElementIndices(catalogue.size(), {0}),
      m_rowStarts(catalogue.size(), {0, 1}),
      m_flowchartFileNames(column(&CatalogueEntry::fileName)),
      m_flowchartTitles(column(&CatalogueEntry::title)),
      m_flowchartIntros(catalogue.size(), introOfUnreadFlowchart()),
      m_directory(directory),
      m_minX(catalogue.size(), 0),
      m_maxX(catalogue.size(), 0),
      m_minY(catalogue.size(), 0),
      m_maxY(catalogue.size(), 0),
      m_rowCells(catalogue.size()) {
  tavrel::engine::prepareFailures();
}

CTavrel::~CTavrel() = default;

std::vector<std::string> CTavrel::mGetVectorOfFlowchartTitles() { return m_flowchartTitles; }

std::int32_t CTavrel::mWhichFlowchartIndex(const std::string& fileName) const {
  const auto first = m_flowchartFileNames.begin();
  const auto found = std::find(first, m_flowchartFileNames.end(), fileName);
  return found == m_flowchartFileNames.end() ? -1 : static_cast<std::int32_t>(found - first);
}
