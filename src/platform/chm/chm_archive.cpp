#include "platform/chm/chm_archive.h"

#include <chm_lib.h>

#include <algorithm>
#include <cctype>

namespace platform {

std::optional<HelpReference> SplitHelpReference(std::string_view reference) {
  const auto mark = reference.find("::");
  if (mark == std::string_view::npos) return std::nullopt;
  std::string_view topic = reference.substr(mark + 2);
  std::string_view anchor;
  if (const auto hash = topic.find('#'); hash != std::string_view::npos) {
    anchor = topic.substr(hash + 1);
    topic = topic.substr(0, hash);
  }
  if (topic.empty() || topic == "/") return std::nullopt;
  HelpReference result{std::string(reference.substr(0, mark)), std::string(topic),
                       std::string(anchor)};
  if (result.topic.front() != '/') result.topic.insert(0, 1, '/');
  return result;
}

void ChmArchive::Closer::operator()(chmFile* file) const { chm_close(file); }

std::optional<ChmArchive> ChmArchive::Open(const std::filesystem::path& file) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(file, ignored)) return std::nullopt;
  chmFile* handle = chm_open(file.c_str());
  if (handle == nullptr) return std::nullopt;
  return ChmArchive(handle);
}

std::optional<std::string> ChmArchive::Read(std::string_view path) const {
  chmUnitInfo unit{};
  const std::string objectPath(path);
  if (chm_resolve_object(file_.get(), objectPath.c_str(), &unit) != CHM_RESOLVE_SUCCESS)
    return std::nullopt;
  std::string bytes(static_cast<std::size_t>(unit.length), '\0');
  if (unit.length == 0) return bytes;
  const LONGINT64 read = chm_retrieve_object(
      file_.get(), &unit, reinterpret_cast<unsigned char*>(bytes.data()), 0,
      static_cast<LONGINT64>(unit.length));
  if (read != static_cast<LONGINT64>(unit.length)) return std::nullopt;
  return bytes;
}

std::optional<std::string> ChmArchive::FindByExtension(std::string_view extension) const {
  struct Search {
    std::string_view extension;
    std::optional<std::string> found;
  } search{extension, std::nullopt};
  chm_enumerate(
      file_.get(), CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES,
      [](chmFile*, chmUnitInfo* unit, void* context) {
        auto& search = *static_cast<Search*>(context);
        const std::string_view path(unit->path);
        const bool matches =
            path.size() > search.extension.size() &&
            std::equal(search.extension.rbegin(), search.extension.rend(), path.rbegin(),
                       [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) ==
                                                   std::tolower(static_cast<unsigned char>(b)); });
        if (!matches) return CHM_ENUMERATOR_CONTINUE;
        search.found = std::string(path);
        return CHM_ENUMERATOR_SUCCESS;
      },
      &search);
  return search.found;
}

}  // namespace platform
