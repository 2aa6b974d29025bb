#pragma once
// The contents (.hhc) and index (.hhk) files of compiled help: HTML lists of entries, each
// an object of type "text/sitemap" with a name and the topic it leads to.
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct SitemapEntry {
  std::string name;   // the text the contents or index shows
  std::string local;  // the topic inside the help file as written ("HTML/Wizard.htm#Top");
                      // "" for a heading that leads nowhere
  std::vector<SitemapEntry> children;  // the entries of the list nested under this one
};

// The entries of a contents or index file, in file order and nested as its lists are.
// What is no sitemap entry is passed over; text that is no HTML at all gives no entries.
std::vector<SitemapEntry> ReadSitemap(std::string_view html);

}  // namespace platform
