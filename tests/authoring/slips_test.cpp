// One slip in a chart, and one message: at the place of the slip, with what mends it.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "authoring/Compiler.h"
#include "tests/authoring/Found.h"

namespace tavrel::authoring {
namespace {

const Catalogue catalogue = {"Opening", "RespNT"};

const std::string chart =
    "chart: Opening\n"                                         // 1
    "intro: |\n"                                               // 2
    "  When to open.\n"                                        // 3
    "start: strong\n"                                          // 4
    "\n"                                                       // 5
    "boxes:\n"                                                 // 6
    "  # the strong hands\n"                                   // 7
    "  strong:\n"                                              // 8
    "    text: 22+ HCP?\n"                                     // 9
    "    comment: |\n"                                         // 10
    "      Or nearly so,\n"                                    // 11
    "      in tricks.\n"                                       // 12
    "    yes: {text: \"Open 2!c\", comment: \"Forcing.\"}\n"   // 13
    "    no: medium\n"                                         // 14
    "\n"                                                       // 15
    "  medium:\n"                                              // 16
    "    text: 12+ HCP?\n"                                     // 17
    "    comment: Count them.\n"                               // 18
    "    yes: {text: \"Open 1NT\", comment: \"Balanced.\"}\n"  // 19
    "    no: weak\n"                                           // 20
    "\n"                                                       // 21
    "  weak:\n"                                                // 22
    "    text: Pass\n";                                        // 23

// What is said once a part of the chart is written otherwise: "line:column T0000 CURE", one for
// each finding.
std::string saidWith(const std::string& part, const std::string& by) {
  std::string text = chart;
  const std::size_t at = text.find(part);
  if (at == std::string::npos) return "no " + part;
  const SourceFile file("Opening.yaml", text.replace(at, part.size(), by));
  Diagnostics found;
  compile(file, catalogue, found);
  std::string all;
  for (const Diagnostic& each : found.sorted()) {
    all += (all.empty() ? "" : "; ") + std::to_string(each.place.line) + ":" +
           std::to_string(each.place.column) + " " + nameOf(each.code) + " " + each.cure;
  }
  return all;
}

TEST(Slips, AreNoneInTheChart) { EXPECT_EQ(saidWith("chart", "chart"), ""); }

TEST(Slips, OfAColonWithoutABlank) {
  const std::string cure = " T0120 write a blank behind it";
  EXPECT_EQ(saidWith("no: medium", "no:medium"), "14:7" + cure);
  EXPECT_EQ(saidWith("text: 12+", "text:12+"), "17:9" + cure);
  EXPECT_EQ(saidWith("no: weak", "no:weak"), "20:7" + cure);
  EXPECT_EQ(saidWith("{text: \"Open 2", "{text:\"Open 2"), "13:15" + cure);
  EXPECT_EQ(saidWith("\"Open 2!c\", comment: \"F", "\"Open 2!c\" comment:\"F"),
            "13:28 T0123 write a comma between the two");
}

TEST(Slips, OfAMissingColon) {
  EXPECT_EQ(saidWith("no: medium", "no medium"), "14:7 T0121 write no:");
  EXPECT_EQ(saidWith("  medium:", "  medium"), "16:9 T0121 write medium:");
  EXPECT_EQ(saidWith("  strong:", "  strong"), "8:9 T0121 write strong:");
}

TEST(Slips, OfIndentation) {
  EXPECT_EQ(saidWith("    no: weak", "   no: weak"),
            "20:4 T0122 give it as many as the keys that it stands with");
  EXPECT_EQ(saidWith("    comment: Count", "     comment: Count"),
            "18:6 T0122 give it as many blanks as the keys that it stands with");
  EXPECT_EQ(saidWith("    comment: Count", "  comment: Count"),
            "18:3 T0122 indent it like the other keys of its box");
  EXPECT_EQ(saidWith("  medium:", "medium:"),
            "16:1 T0122 indent it like the ids of the other boxes");
  EXPECT_EQ(saidWith("  weak:", "weak:"), "22:1 T0122 indent it like the ids of the other boxes");
  EXPECT_EQ(saidWith("  medium:", "    medium:"),
            "16:5 T0122 indent an id like the other ids, and its box deeper");
  EXPECT_EQ(saidWith("      Or nearly", "    Or nearly"), "11:5 T0122 write blanks before it");
  EXPECT_EQ(saidWith("      in tricks", "    in tricks"), "12:5 T0122 write blanks before it");
  EXPECT_EQ(saidWith("      in tricks", "   in tricks"), "12:4 T0122 write blanks before it");
  EXPECT_EQ(saidWith("      Or nearly", "Or nearly"), "11:1 T0122 write blanks before it");
}

TEST(Slips, OfKeysThatAreIndentedLikeTheTextBeforeThem) {
  const std::string cure = " T0122 give it as many blanks as ";
  EXPECT_EQ(saidWith("    yes: {text: \"Open 2", "      yes: {text: \"Open 2"),
            "13:7" + cure + "comment");
  EXPECT_EQ(saidWith("start: ", "  start: "), "4:3" + cure + "intro");
  EXPECT_EQ(saidWith("comment: Count them.\n", "comment: |\n      Count.\n      no: weak\n"), "");
  EXPECT_EQ(saidWith("comment: Count them.\n    yes", "comment: |\n      Count.\n      yes"),
            "20:7" + cure + "comment");
  EXPECT_EQ(
      saidWith("text: 12+ HCP?\n    comment: Count", "text: |\n      12+?\n      comment: Count"),
      "19:7" + cure + "text");
  EXPECT_EQ(saidWith("text: Pass", "comment: |\n      Weak.\n      text: Pass"),
            "25:7" + cure + "comment");
  EXPECT_EQ(saidWith("text: Pass", "text: Pass\n    comment: |\n      Weak.\n      chart: RespNT"),
            "26:7" + cure + "comment");
}

TEST(Slips, AreNoneInCommentsThatHaveAWordBeforeAColon) {
  EXPECT_EQ(
      saidWith("text: Pass", "text: Pass\n    comment: |\n      yes: two aces\n      no: none"),
      "");
  EXPECT_EQ(saidWith("      Or nearly", "      yes: strong\n      Or nearly"), "");
}

TEST(Slips, OfQuotes) {
  const std::string cure = " T0119 close it at the end of the text";
  EXPECT_EQ(saidWith("Forcing.\"}", "Forcing.}"), "13:38" + cure);
  EXPECT_EQ(saidWith("\"Open 2!c\",", "\"Open 2!c,"), "13:17" + cure);
  EXPECT_EQ(saidWith("text: 22+", "text: \"22+"), "9:11" + cure);
  EXPECT_EQ(saidWith("text: Pass", "text: \"Pass"), "23:11" + cure);
  EXPECT_EQ(saidWith("\"Balanced.\"", "\"Say \"no\" then\""),
            "19:43 T0117 write \\\" for a quote within a text");
  EXPECT_EQ(saidWith("Open 2!c", "Open 2\\c"),
            "13:24 T0126 take it away, or write two for one; suits are !c !d !h !s");
}

TEST(Slips, OfQuotesThatEditorsOfLettersWrite) {
  const std::string cure = " T0118 write \" before it and behind it: ", other = " is another sign";
  EXPECT_EQ(saidWith("\"Open 2!c\"", "“Open 2!c”"), "13:17" + cure + "“" + other);
  EXPECT_EQ(saidWith("\"Open 2!c\"", "„Open 2!c“"), "13:17" + cure + "„" + other);
  EXPECT_EQ(saidWith("\"Open 2!c\"", "“Open: 2!c”"), "13:17" + cure + "“" + other);
  EXPECT_EQ(saidWith("\"Open 2!c\"", "Open “2!c”"), "13:17 T0118 put the text in double quotes");
}

TEST(Slips, OfTwoAnswersOnALine) {
  const std::string cure = " T0109 write no: on a line of its own";
  EXPECT_EQ(saidWith("no: weak", "yes: strong no: weak"), "20:17" + cure);
  EXPECT_EQ(saidWith("    yes: {text: \"Open 1NT\", comment: \"Balanced.\"}\n    no: weak",
                     "    yes: strong, no: weak"),
            "19:18" + cure);
}

TEST(Slips, OfATextBehindTheSignOfABlock) {
  EXPECT_EQ(saidWith("comment: |\n      Or", "comment: | Or"),
            "10:14 T0117 begin the text on the next line");
}

TEST(Slips, OfCommasAndBraces) {
  EXPECT_EQ(saidWith("2!c\",", "2!c\""), "13:28 T0123 write a comma between the two");
  EXPECT_EQ(saidWith("2!c\",", "2!c\";"), "13:27 T0123 write a comma instead");
  EXPECT_EQ(saidWith("Forcing.\"}", "Forcing.\""), "13:10 T0124 write } behind what belongs to it");
  EXPECT_EQ(saidWith("{text: \"Open 2!c\", comment: \"Forcing.\"}", "{\"Open 2!c\"}"),
            "13:11 T0114 write \"text: \" or \"comment: \" before it");
  EXPECT_EQ(saidWith("\"Forcing.\"", "Strong, and forcing."),
            "13:38 T0118 put the text in double quotes");
  EXPECT_EQ(saidWith("medium\n", "text: Pass\n"),
            "14:9 T0109 write it as {text: \"…\", comment: \"…\"}");
  EXPECT_EQ(saidWith("medium\n", "(text: \"Pass\")\n"),
            "14:9 T0109 write it as {text: \"…\", comment: \"…\"}");
}

TEST(Slips, OfTextsThatYamlReadsOtherwise) {
  for (const char* text : {"[12] HCP", "{12} HCP", "- 12", "? 12", "@12", "!c, four", "*q"}) {
    EXPECT_EQ(saidWith("12+ HCP?", text), "17:11 T0117 put the text in double quotes") << text;
  }
  EXPECT_EQ(
      saidWith("12+ HCP?", "\"12\" HCP?"),
      "17:16 T0117 put the whole text in double quotes, and write \\\" for a quote within it");
}

TEST(Slips, ThatYamlWouldReadAsIfNothingWereWrong) {
  const std::string quoteIt = "put the text in double quotes";
  const std::string orComment = quoteIt + ", or put the comment on a line of its own";
  const std::string orBlanks =
      quoteIt + ", or write no more blanks before a comment than before the key";
  EXPECT_EQ(saidWith("Count them.", "Count them,\n      suit #2 too"), "19:12 T0117 " + orComment);
  EXPECT_EQ(saidWith("Count them.", "Count them,\n      #2 too"), "19:7 T0117 " + orBlanks);
  EXPECT_EQ(saidWith("Count them.", "\n      #2 too\n      are"), "19:7 T0117 " + orBlanks);
  EXPECT_EQ(saidWith("Count them.", "Count them,\n\n\n      suit #2"), "21:12 T0117 " + orComment);
  EXPECT_EQ(saidWith("Count them.", "! Count"), "18:14 T0110 " + quoteIt);
  EXPECT_EQ(saidWith("12+ HCP?", ">12"), "17:11 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("12+ HCP?", "|2\n      12+"), "17:11 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("Count them.", "Count\n      yes:weak"),
            "19:10 T0120 write a blank behind it");
}

TEST(Slips, AreNoneInRemarksThatStandLikeKeys) {
  EXPECT_EQ(saidWith("Count them.", "Count them.\n    # and no more"), "");
  EXPECT_EQ(saidWith("Count them.", "Count\n      them.\n\n    # and no more"), "");
  EXPECT_EQ(saidWith("Count them.", "\n    # and no more\n      Count."), "");
  EXPECT_EQ(saidWith("Count them.", "\"Count\n      #2\"  # and no more"), "");
  EXPECT_EQ(saidWith("  medium:", "  medium:  # see page 3"), "");
}

TEST(Slips, OfTextsThatARemarkEnds) {
  const std::string quoteIt = "put the text in double quotes";
  EXPECT_EQ(saidWith("Count them.", "Suit #2\n      counts"), "18:19 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("Count them.", "Suit\n      #2\n      counts"), "19:7 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("Count them.", "Suit\n      is #2\n      counts"), "19:10 T0117 " + quoteIt);
}

TEST(Slips, OfTextsBelowTheirKeys) {
  const std::string quoteIt = "put the text in double quotes";
  const std::string quoteAll =
      "put the whole text in double quotes, and write \\\" for a quote within it";
  EXPECT_EQ(saidWith("Count them.", "\n      *all of them"), "19:7 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("Count them.", "\n      @all of them"), "19:7 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("Count them.", "\n      \"All\" of them"), "19:13 T0117 " + quoteAll);
  EXPECT_EQ(saidWith("Count them.", "\"All\n      of\" them"), "19:11 T0117 " + quoteAll);
}

TEST(Slips, OfSignsThatBeginATextInBraces) {
  const std::string quoteIt = "put the text in double quotes";
  for (const char* text : {"> 12", "@c", "% of", "|x", "- x", "? x", "`x"}) {
    EXPECT_EQ(saidWith("\"Balanced.\"}", std::string(text) + "}"), "19:38 T0118 " + quoteIt)
        << text;
  }
  EXPECT_EQ(saidWith("\"Balanced.\"}", "*x}"), "19:38 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("\"Open 1NT\"", "#1 suit"), "19:17 T0117 " + quoteIt);
}

TEST(Slips, OfWhatStandsBehindTheLastBrace) {
  const std::string cure = "take it away, or write it before that brace";
  EXPECT_EQ(saidWith("\"Balanced.\"}", "\"Balanced.\"}}"), "19:50 T0109 " + cure);
  EXPECT_EQ(saidWith("\"Balanced.\"}", "\"Balanced.\"} always"), "19:51 T0109 " + cure);
}

TEST(Slips, OfABoxOnTheLineOfItsId) {
  const std::string braces = "write it as {text: \"…\", comment: \"…\"}";
  EXPECT_EQ(saidWith("weak:\n    text: Pass", "weak: text: Pass"), "22:9 T0109 " + braces);
  EXPECT_EQ(saidWith("no: medium", "no: text: Pass"), "14:9 T0109 " + braces);
  EXPECT_EQ(saidWith("comment: Count them.", "coment: Count: them."),
            "18:18 T0117 put the text in double quotes");
}

TEST(Slips, OfEscapesThatStandForNoCharacter) {
  const std::string cure = "write the character itself; suits are !c !d !h !s";
  EXPECT_EQ(saidWith("Balanced.", "\\ud800"), "19:39 T0126 " + cure);
  EXPECT_EQ(saidWith("Balanced.", "a \\U00110000"), "19:41 T0126 " + cure);
}

TEST(Slips, OfWordsThatAreTooLongForAKey) {
  EXPECT_EQ(saidWith("  medium:", "  " + std::string(2000, 'm') + ":"), "16:3 T0109 shorten it");
}

TEST(Slips, OfKeysInQuotesAndWithBlanksBehindThem) {
  const std::string quoteIt = "put the text in double quotes";
  EXPECT_EQ(saidWith("comment: Count them.", "\"comment\": Count: them."),
            "18:21 T0117 " + quoteIt);
  EXPECT_EQ(saidWith("comment: Count them.", "comment : Count: them."), "18:20 T0117 " + quoteIt);
}

TEST(Slips, OfInvisibleCharacters) {
  const std::string cure = " T0125 take it away, and write a blank if one is wanted";
  EXPECT_EQ(saidWith("    no: weak", "   \u00A0no: weak"), "20:4" + cure);
  EXPECT_EQ(saidWith("no: weak", "no:\u00A0weak"), "20:8" + cure);
  EXPECT_EQ(saidWith("no: weak", "no: weak\u200B"), "20:13" + cure);
  EXPECT_EQ(saidWith("no: weak", "no\u200B: weak"), "20:7" + cure);
  EXPECT_EQ(saidWith("12+ HCP?", "12+\u00A0HCP?"), "");
}

TEST(Slips, OfListsAndRemarks) {
  const std::string list = " T0204 take it away: only auction and call have lists";
  EXPECT_EQ(saidWith("  strong:", "  - strong:"), "8:3" + list);
  EXPECT_EQ(saidWith("    text: 12+ HCP?\n    comment", "    - text: 12+ HCP?\n    - comment"),
            "17:5" + list);
  EXPECT_EQ(saidWith("# the strong", "// the strong"), "7:3 T0109 write # instead");
  EXPECT_EQ(saidWith("# the strong hands", "// strong: hands"), "7:3 T0205 write # instead");
  EXPECT_EQ(saidWith("chart: Op", "```yaml\nchart: Op"), "1:1 T0109 take it away");
}

TEST(Slips, OfKeysAndIds) {
  EXPECT_EQ(saidWith("boxes:\n", ""), "7:3 T0203 write a line \"boxes:\" before this one");
  EXPECT_EQ(saidWith("text: Pass", "Text: Pass"),
            "23:5 T0202 did you mean text? It may have text, comment, yes, no, chart, turn, when, "
            "asks, call, shows, forcing, next, never");
  EXPECT_EQ(saidWith("intro", "introduction"),
            "2:1 T0202 did you mean intro? It may have chart, intro, start, entry, turn, width, "
            "applies, boxes");
  EXPECT_EQ(saidWith("no: weak", "no: waek"), "20:9 T0207 did you mean weak?");
  EXPECT_EQ(saidWith("no: weak", "no: Bid 3NT"),
            "20:9 T0207 for a box that stands here write {text: \"Bid 3NT\"}");
  EXPECT_EQ(saidWith("no: weak", "no: nothing"),
            "20:9 T0207 write a box of that id, or the id of another");
  EXPECT_EQ(saidWith("  weak:\n    text:", "  weak:"), "22:9 T0204 write weak: {text: \"Pass\"}");
  EXPECT_EQ(saidWith("  medium:", "  med_ium:"), "16:3 T0205 write med-ium");
  EXPECT_EQ(saidWith("  medium:", "  mëdium:"), "16:3 T0205 give the box another id");
  EXPECT_EQ(saidWith("{text: \"Open 1NT\", comment: \"Balanced.\"}\n    no: weak",
                     "medium\n    no: medium"),
            "19:10 T0301 lead it to another box");
  EXPECT_EQ(saidWith("start: strong\n\nboxes:\n", "boxes:\n  start: strong\n"),
            "5:10 T0204 start belongs to the chart: write no blanks before it");
}

TEST(Slips, ThatLoseABoxAreNotSaidToBeMissingIds) {
  EXPECT_EQ(saidWith("  weak:", "  medium:"), "22:3 T0116 give this one another name");
  EXPECT_EQ(saidWith("\n  weak:", "---\n  weak:"), "21:1 T0115 write one chart a file");
  EXPECT_EQ(saidWith("\n  weak:", "boxes:\n  weak:"), "21:1 T0116 keep one of the two");
}

TEST(Slips, BehindARemarkBetweenBraces) {
  EXPECT_EQ(saidWith("yes: {text: \"Open 2!c\", comment",
                     "yes: {text: \"Open 2!c\",  # forcing\n      comment: \"x\" chart"),
            "14:20 T0123 write a comma between the two");
}

TEST(Slips, OfAnApostropheThatClosesNothing) {
  EXPECT_EQ(
      saidWith("yes: {text: \"Open 2!c\", comment: \"Forcing.\"}\n    no: medium",
               "yes: {text: 'Open 2, comment: \"Forcing.\"}\n    no: medium # partner's"),
      "13:17 T0119 close it at the end of the text; one that belongs to it wants double quotes "
      "around the text");
}

TEST(Slips, OfWordsBehindABrace) {
  EXPECT_EQ(saidWith("comment: \"Forcing.\"}", "yes: {text: \"Pass\"} forcing}"),
            "13:49 T0123 write one before this");
}

TEST(Slips, OfAQuoteThatIsOpenAtTheEndOfTheDocument) {
  EXPECT_EQ(saidWith("text: Pass\n", "text: \"Pass\n---\n"),
            "23:11 T0119 close it at the end of the text");
}

TEST(Slips, BehindATextInQuotes) {
  EXPECT_EQ(saidWith("text: 12+ HCP?\n    comment:", "text: \"12+ HCP?\"\n    comment"),
            "18:12 T0121 write comment:");
  EXPECT_EQ(saidWith("text: 12+ HCP?\n    comment:", "text: \"12+\n      HCP?\"\n    comment"),
            "19:12 T0121 write comment:");
}

TEST(Slips, OfABracketThatIsNeverClosed) {
  EXPECT_EQ(saidWith("12+ HCP?", "[12+ HCP?"), "17:11 T0124 write ] behind what belongs to it");
}

}  // namespace
}  // namespace tavrel::authoring
