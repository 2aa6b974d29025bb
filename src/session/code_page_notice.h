#pragma once
// What the user is told when a text holds characters that the session's code page (the
// ANSI code page that session and generated files are written in) cannot hold.
#include <string>
#include <string_view>

namespace session {

// For a text field or list cell: "The code page WINDOWS-1252 cannot hold "张伟": these
// characters would be written as "?" in the session file and the generated code."; ""
// when the code page holds every character of `text`.
std::string CodePageWarning(std::string_view text);

// For a project, model, data or sketch path, which is not taken then: "... cannot hold
// "项目": a path written with "?" would lead nowhere, so it is not taken."; "" when the
// code page holds the whole path.
std::string CodePagePathRefusal(std::string_view path);

}  // namespace session
