// Text as it may stand in a picture's file.

#include "drawing/SvgMarkup.h"

#include <gtest/gtest.h>

namespace tavrel::drawing {
namespace {

TEST(LinkTo, LeavesWhatMeansNothingInLinks) {
  EXPECT_EQ(linkTo("RespNT-2_a~.svg"), "RespNT-2_a~.svg");
}

TEST(LinkTo, WritesAllElseAsPercentSignsAndDigits) {
  EXPECT_EQ(linkTo("a b/c?d#e%f:g"), "a%20b%2Fc%3Fd%23e%25f%3Ag");
  EXPECT_EQ(linkTo("é\x7F"), "%C3%A9%7F");
}

TEST(XmlText, ReplacesWhatXmlForbids) {
  EXPECT_EQ(xmlText("a\xEF\xBF\xBE"
                    "b\xEF\xBF\xBF\xEF\xBF\xBF"),
            "a\uFFFDb\uFFFD\uFFFD");
  EXPECT_EQ(xmlText("<&> ♠\uFFFD"), "<&> ♠\uFFFD");
}

}  // namespace
}  // namespace tavrel::drawing
