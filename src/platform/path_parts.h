#pragma once
// Parts of a path as the file-system object names them; pure text operations that
// treat both "\" and "/" as separators.
#include <string>
#include <string_view>

namespace platform {

// "C:\a\Coil.vbp" -> "Coil.vbp"
std::string FileName(std::string_view path);
// "C:\a\Coil.vbp" -> "Coil" (GetBaseName: no folder, no last extension)
std::string BaseName(std::string_view path);
// "C:\a\Coil.vbp" -> "vbp" (GetExtensionName: after the last dot of the file name, or "")
std::string ExtensionName(std::string_view path);
// "C:\a\Coil.vbp" -> "C:\a" (GetParentFolderName: without a trailing separator)
std::string ParentFolder(std::string_view path);

}  // namespace platform
