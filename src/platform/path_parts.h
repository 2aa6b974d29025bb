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

// `folder` and `name` joined with the separator the folder is written with (its last
// one; without any, "\" for a drive "C:" and "/" otherwise); a separator that ends the
// folder is not doubled. "/home/ann" + "Coil.vbp" -> "/home/ann/Coil.vbp".
std::string JoinPath(std::string_view folder, std::string_view name);

}  // namespace platform
