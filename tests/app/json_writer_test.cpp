#include "app/json_writer.h"

#include <sstream>

#include <gtest/gtest.h>

namespace app {
namespace {

TEST(JsonQuoteTest, EscapesEverythingOutsidePrintableAscii) {
  EXPECT_EQ(JsonQuote("C:\\a \"b\"\t\r\n\x01\x7F"), R"("C:\\a \"b\"\t\r\n\u0001\u007f")");
  EXPECT_EQ(JsonQuote("J\xC3\xBCrgen \xE2\x82\xAC \xF0\x9F\x98\x80"),
            R"("J\u00fcrgen \u20ac \ud83d\ude00")");
}

TEST(JsonQuoteTest, MalformedUtf8BecomesReplacementCharacters) {
  // A lone continuation byte, a Latin-1 byte, an overlong form, a surrogate, a cut-off
  // character at the end.
  EXPECT_EQ(JsonQuote("\x80|\xFC|\xC0\xAF|\xED\xA0\x80|\xE2\x82"),
            R"("\ufffd|\ufffd|\ufffd\ufffd|\ufffd\ufffd\ufffd|\ufffd\ufffd")");
}

TEST(JsonWriterTest, NestsWithIndentation) {
  std::ostringstream out;
  JsonWriter json(out);
  json.BeginObject();
  json.Key("a").Int(-1);
  json.Key("empty").BeginArray().EndArray();
  json.Key("list").BeginArray();
  json.BeginObject().Key("x").Null().Key("y").Bool(false).EndObject();
  json.String("s");
  json.EndArray();
  json.EndObject();
  EXPECT_EQ(out.str(),
            "{\n"
            "  \"a\": -1,\n"
            "  \"empty\": [],\n"
            "  \"list\": [\n"
            "    {\n"
            "      \"x\": null,\n"
            "      \"y\": false\n"
            "    },\n"
            "    \"s\"\n"
            "  ]\n"
            "}\n");
}

}  // namespace
}  // namespace app
