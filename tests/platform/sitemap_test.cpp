#include "platform/chm/sitemap.h"

#include <gtest/gtest.h>

#include <string>

namespace platform {
namespace {

// The entries as "name=local" lines, nested ones indented under their parent.
std::string Outline(const std::vector<SitemapEntry>& entries, const std::string& indent = "") {
  std::string text;
  for (const SitemapEntry& entry : entries)
    text += indent + entry.name + "=" + entry.local + "\n" + Outline(entry.children, indent + "  ");
  return text;
}

constexpr const char* kItem = R"(<LI><OBJECT type="text/sitemap"><param name="Name" value=")";

TEST(Sitemap, ReadsNestedListsAsTheContentsAndIndexFilesWriteThem) {
  const struct {
    std::string html;
    std::string outline;
  } cases[] = {
      // Nested list inside an open item, site properties and other objects passed over.
      {std::string(R"(<HTML><BODY><OBJECT type="text/site properties"><param name="X" value="1"></OBJECT><UL>)") +
           kItem + R"(Top"><param name="Local" value="HTML/Top.htm"></OBJECT><UL>)" + kItem +
           R"(A &amp; B"><param name="Local" value="HTML/A.htm#Here"></OBJECT></UL>)" + kItem +
           R"(Last"><param name="Local" value="HTML/Last.htm"></OBJECT></UL></BODY></HTML>)",
       "Top=HTML/Top.htm\n  A & B=HTML/A.htm#Here\nLast=HTML/Last.htm\n"},
      // A nested list after a closed item belongs to that item; a heading leads nowhere;
      // an index entry's first name and topic are the ones shown.
      {std::string("<ul>") + kItem + R"(Heading"></OBJECT></LI><ul>)" + kItem +
           R"(Key"><param name="Local" value="a.htm"><param name="Name" value="Other"><param name="Local" value="b.htm"></OBJECT></ul></ul>)",
       "Heading=\n  Key=a.htm\n"},
      {"no lists here", ""},
      {"", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.html);
    EXPECT_EQ(Outline(ReadSitemap(c.html)), c.outline);
  }
}

}  // namespace
}  // namespace platform
