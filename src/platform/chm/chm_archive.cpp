#include "platform/chm/chm_archive.h"

#include <chm_lib.h>

namespace platform {

std::optional<HelpReference> SplitHelpReference(std::string_view reference) {
  const auto mark = reference.find("::");
  if (mark == std::string_view::npos || mark + 2 >= reference.size()) return std::nullopt;
  HelpReference result{std::string(reference.substr(0, mark)),
                       std::string(reference.substr(mark + 2))};
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

}  // namespace platform
