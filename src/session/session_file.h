#pragma once
// The session file (.bvg): the reader and the writer of one session record.
#include <string>

#include "platform/file_system.h"
#include "session/form_state.h"
#include "vbrt/file_table.h"

namespace session {

// What the reader and writer open files with: file number 1 of the run's file table, and
// the file system that maps the path to a file.
struct SessionIo {
  vbrt::FileTable& files;
  const platform::FileSystem& fs;
};

// Reads the session at `path` into the form's controls, adding to what they hold and
// running the change handlers of the path fields. True on success; false on failure, with
// `message` set to the text to show or left as it was (see the reader's failure table).
// A failed load keeps what it read; the file is closed either way.
bool LoadSession(FormState& form, SessionIo io, const std::string& path, std::string& message);

// Why a load that failed without a message failed, naming `path`: "'…' is not a complete
// session file: …".
std::string IncompleteSessionMessage(const std::string& path);
// Why a load that failed with the reader's `message` failed, naming `path`: "'…' could
// not be read completely: " and the message.
std::string UnreadSessionMessage(const std::string& path, const std::string& message);

// Writes the form's record to `path`, replacing the file once the whole record is
// written (a device such as /dev/null is written directly). An empty path writes nothing
// and succeeds. False with `message` set on failure; the previous file is then as it was
// and file number 1 free again.
bool SaveSession(const FormState& form, SessionIo io, const std::string& path,
                 std::string& message);

}  // namespace session
