#include "platform/chm/sitemap.h"

#include <libxml/HTMLparser.h>

#include <memory>
#include <strings.h>

namespace platform {
namespace {

bool IsElement(const xmlNode* node, const char* name) {
  return node->type == XML_ELEMENT_NODE &&
         strcasecmp(reinterpret_cast<const char*>(node->name), name) == 0;
}

std::string Attribute(const xmlNode* node, const char* name) {
  std::unique_ptr<xmlChar, decltype(xmlFree)> value(
      xmlGetProp(node, reinterpret_cast<const xmlChar*>(name)), xmlFree);
  return value ? std::string(reinterpret_cast<const char*>(value.get())) : std::string();
}

// An entry's "Name" and "Local" parameters; an index entry may repeat them, and its
// first pair is the one shown.
void ReadObject(const xmlNode* object, SitemapEntry& entry) {
  for (const xmlNode* param = object->children; param != nullptr; param = param->next) {
    if (!IsElement(param, "param")) continue;
    const std::string key = Attribute(param, "name");
    std::string* field = strcasecmp(key.c_str(), "Name") == 0    ? &entry.name
                         : strcasecmp(key.c_str(), "Local") == 0 ? &entry.local
                                                                 : nullptr;
    if (field != nullptr && field->empty()) *field = Attribute(param, "value");
  }
}

bool IsSitemapObject(const xmlNode* node) {
  return IsElement(node, "object") && strcasecmp(Attribute(node, "type").c_str(), "text/sitemap") == 0;
}

std::vector<SitemapEntry> ReadList(const xmlNode* list);

// An item: its object, and the lists nested inside it.
SitemapEntry ReadItem(const xmlNode* item) {
  SitemapEntry entry;
  for (const xmlNode* child = item->children; child != nullptr; child = child->next) {
    if (IsSitemapObject(child)) {
      ReadObject(child, entry);
    } else if (IsElement(child, "ul")) {
      for (SitemapEntry& nested : ReadList(child)) entry.children.push_back(std::move(nested));
    }
  }
  return entry;
}

// A list's items. A nested list written after a closed item belongs to that item.
std::vector<SitemapEntry> ReadList(const xmlNode* list) {
  std::vector<SitemapEntry> entries;
  for (const xmlNode* child = list->children; child != nullptr; child = child->next) {
    if (IsElement(child, "li")) {
      entries.push_back(ReadItem(child));
    } else if (IsElement(child, "ul")) {
      std::vector<SitemapEntry> nested = ReadList(child);
      if (entries.empty()) {
        entries = std::move(nested);
      } else {
        for (SitemapEntry& entry : nested) entries.back().children.push_back(std::move(entry));
      }
    }
  }
  return entries;
}

// The outermost lists, wherever in the document they stand.
void ReadTopLists(const xmlNode* node, std::vector<SitemapEntry>& entries) {
  for (; node != nullptr; node = node->next) {
    if (IsElement(node, "ul")) {
      for (SitemapEntry& entry : ReadList(node)) entries.push_back(std::move(entry));
    } else {
      ReadTopLists(node->children, entries);
    }
  }
}

}  // namespace

std::vector<SitemapEntry> ReadSitemap(std::string_view html) {
  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      htmlReadMemory(html.data(), static_cast<int>(html.size()), nullptr, nullptr,
                     HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING |
                         HTML_PARSE_NONET),
      xmlFreeDoc);
  std::vector<SitemapEntry> entries;
  if (document) ReadTopLists(xmlDocGetRootElement(document.get()), entries);
  return entries;
}

}  // namespace platform
