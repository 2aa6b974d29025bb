#pragma once
// The access keys (Alt + a letter) of the window's and its dialogs' labels and buttons.
// Each marks a letter its caption already holds, so the captions read as they do; within
// a page, together with the buttons below every page, and within a dialog no key is
// given twice. The "..." browse buttons and "<" have no letter to mark and stay in the
// Tab chain.
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wizard {

struct AccessKey {
  std::string_view scope;    // "bar" (below every page), "page1".."page7", "dlgInput", "dlgOutput",
                             // "dlgPreview"
  std::string_view control;  // the control the caption belongs to; a label's key moves
                             // the focus to its field
  int caption;               // the caption's string number
  char key;                  // the letter, as the caption writes it in upper case
};

// Every access key, by scope.
const std::vector<AccessKey>& AccessKeys();

// The key of the control of that name; none for a control without one. Controls of the
// same name in different scopes (btnHelp, btnCancel, btnOK, lblName) share their key.
std::optional<char> AccessKeyOf(std::string_view control);

// `caption` with its access key marked by an "&" before the first letter that is the key
// in either case; a caption that marks a key of its own ("&Next >"), or holds no such
// letter, is returned as it is.
std::string WithAccessKey(std::string_view caption, std::optional<char> key);

}  // namespace wizard
