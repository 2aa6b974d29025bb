#include "platform/regfile/registry_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "scratch_folder.h"

namespace platform {
namespace {

using Root = RegistryRoot;

RegistryValue Text(const std::string& text) { return text; }

constexpr const char* kMessengerClsid = "{6E1B7A52-3C0D-4F7B-9A8E-2D5C4B3A1F00}";
constexpr const char* kHostLibrary = "{0A9F4C2E-71B3-4D8A-8C6B-5E4D3C2B1A09}";

// What the host's type-library lookup reads: the messenger's class, then its library.
std::string HostTypeLibrary(const Registry& registry) {
  const RegistryValue clsid = registry.QueryRegValue(Root::ClassesRoot, "ZXBV.Messenger\\Clsid", "");
  if (!std::holds_alternative<std::string>(clsid)) return "";
  const RegistryValue library = registry.QueryRegValue(
      Root::ClassesRoot, "CLSID\\" + std::get<std::string>(clsid) + "\\TypeLib", "");
  return std::holds_alternative<std::string>(library) ? std::get<std::string>(library) : "";
}

// UTF-16 LE with a byte-order mark, as the registry editor writes its exports: the ASCII
// text, then the `more` units.
std::string Utf16(const std::string& ascii, std::u16string_view more = u"") {
  std::u16string units(ascii.begin(), ascii.end());
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : units.append(more)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

const std::string kSystemHive = std::string(
    "WINE REGISTRY Version 2\n"
    ";; All keys relative to \\\\Machine\n"
    "\n"
    "#arch=win32\n"
    "\n"
    "[Software\\\\Classes\\\\CLSID\\\\") + kMessengerClsid + "\\\\TypeLib] 1700000000\n"
    "#time=1d9f0a1b2c3d4e5\n"
    "@=\"" + kHostLibrary + "\"\n"
    "\n"
    "[Software\\\\Classes\\\\ZXBV.Messenger\\\\Clsid] 1700000000\n"
    "@=\"" + kMessengerClsid + "\"\n"
    "\n"
    "[Software\\\\Zentrix\\\\Settings] 1700000000\n"
    "\"Path\"=\"C:\\\\Program Files\\\\Zentrix\\\\\"\n"
    "\"Quote\"=\"say \\\"hi\\\"\\x00e9\"\n"
    "\"Escapes\"=\"\\x0080\\x07ff\\x0800\\x00e9f\"\n"
    "\"Cut\"=\"before\\0after\"\n"
    "\"Count\"=dword:0000001f\n"
    "\"Minus\"=dword:ffffffff\n"
    "\"Expand\"=str(2):\"%SystemRoot%\"\n"
    "\"Blob\"=hex:01,02,03,\\\n"
    "  04,05\n"
    "\"After\"=\"still read\"\n";

class RegistryFilesTest : public testing::Test {
 protected:
  RegistryValue Query(Root root, const std::string& key, const char* name) const {
    return registry_.QueryRegValue(root, key, name);
  }
  ScratchFolder scratch_;
  RegistryFiles registry_;
};

TEST_F(RegistryFilesTest, ReadsAWineHive) {
  registry_.AddFile(scratch_.Write("system.reg", kSystemHive));
  EXPECT_EQ(HostTypeLibrary(registry_), kHostLibrary);
  const std::string key = "software\\ZENTRIX\\Settings";
  EXPECT_EQ(Query(Root::LocalMachine, key, "path"), Text("C:\\Program Files\\Zentrix\\"));
  EXPECT_EQ(Query(Root::LocalMachine, key, "Quote"), Text("say \"hi\"\xC3\xA9"));
  // \x takes up to four hex digits, in UTF-8 of one to three bytes.
  EXPECT_EQ(Query(Root::LocalMachine, key, "Escapes"),
            Text("\xC2\x80\xDF\xBF\xE0\xA0\x80\xC3\xA9" "f"));
  EXPECT_EQ(Query(Root::LocalMachine, key, "Cut"), Text("before"));
  EXPECT_EQ(Query(Root::LocalMachine, key, "Count"), RegistryValue(int32_t{31}));
  EXPECT_EQ(Query(Root::LocalMachine, key, "Minus"), RegistryValue(int32_t{-1}));
  for (const char* unread : {"Expand", "Blob", "Missing"}) {
    EXPECT_EQ(Query(Root::LocalMachine, key, unread), RegistryValue{}) << unread;
  }
  EXPECT_EQ(Query(Root::LocalMachine, key, "After"), Text("still read"));
  EXPECT_EQ(Query(Root::CurrentUser, key, "Count"), RegistryValue{});
}

TEST_F(RegistryFilesTest, UserClassesWinOverMachineClasses) {
  registry_.AddFile(scratch_.Write("system.reg", kSystemHive));
  registry_.AddFile(scratch_.Write("user.reg",
                                   "WINE REGISTRY Version 2\n"
                                   ";; All keys relative to \\\\User\\\\S-1-5-21-1-2-3-1000\n"
                                   "\n"
                                   "[Software\\\\Classes\\\\ZXBV.Messenger\\\\Clsid] 1700000001\n"
                                   "@=\"{USER}\"\n"));
  const std::string key = "Software\\Classes\\ZXBV.Messenger\\Clsid";
  EXPECT_EQ(Query(Root::ClassesRoot, "zxbv.messenger\\CLSID", ""), Text("{USER}"));
  EXPECT_EQ(Query(Root::CurrentUser, key, ""), Text("{USER}"));
  // The machine's own value is still there underneath.
  EXPECT_EQ(Query(Root::LocalMachine, key, ""), Text(kMessengerClsid));
}

std::string ExportFile(const std::string& header) {
  return header + "\r\n\r\n"
         "[HKEY_CLASSES_ROOT\\ZXBV.Messenger\\Clsid]\r\n"
         "@=\"" + kMessengerClsid + "\"\r\n\r\n"
         "[HKEY_LOCAL_MACHINE\\Software\\Classes\\CLSID\\" + kMessengerClsid + "\\TypeLib]\r\n"
         "@=\"" + kHostLibrary + "\"\r\n\r\n"
         "; a comment\r\n"
         "[HKEY_CURRENT_USER\\Software\\Zentrix]\r\n"
         "\"Folder\"=\"C:\\\\Zentrix\"\r\n"
         "\"Level\"=dword:00000002\r\n";
}

TEST_F(RegistryFilesTest, ReadsExportFilesInBothVersionsAndEncodings) {
  const std::pair<const char*, std::string> files[] = {
      {"regedit4.reg", ExportFile("REGEDIT4")},
      {"utf16.reg", Utf16(ExportFile("Windows Registry Editor Version 5.00"))},
      {"plain5.reg", ExportFile("Windows Registry Editor Version 5.00")},
  };
  for (const auto& [name, bytes] : files) {
    SCOPED_TRACE(name);
    RegistryFiles registry;
    registry.AddFile(scratch_.Write(name, bytes));
    EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
    EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Folder"),
              Text("C:\\Zentrix"));
    EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Level"),
              RegistryValue(int32_t{2}));
  }
  // Beyond 16 bits a character comes as a surrogate pair; a lone surrogate is read as "?".
  registry_.AddFile(scratch_.Write(
      "wide.reg", Utf16("REGEDIT4\r\n[HKEY_CURRENT_USER\\Software\\Zentrix]\r\n\"Wide\"=\"x",
                        u"\xDE00\xD83D\xDE00\xD83D\xE000\xD83Dy\"\r\n")));
  EXPECT_EQ(Query(Root::CurrentUser, "Software\\Zentrix", "Wide"),
            Text("x?\xF0\x9F\x98\x80?\xEE\x80\x80?y"));
}

TEST_F(RegistryFilesTest, LaterFilesDeleteAndReplace) {
  registry_.AddFile(scratch_.Write("a.reg", ExportFile("REGEDIT4")));
  registry_.AddFile(scratch_.Write("b.reg",
                                   "REGEDIT4\n"
                                   "[-HKEY_CLASSES_ROOT\\ZXBV.Messenger]\n"
                                   "[HKEY_CURRENT_USER\\Software\\Zentrix]\n"
                                   "\"Level\"=-\n"
                                   "\"Folder\"=\"D:\\\\Other\"\n"));
  EXPECT_EQ(HostTypeLibrary(registry_), "");
  EXPECT_EQ(Query(Root::CurrentUser, "Software\\Zentrix", "Level"), RegistryValue{});
  EXPECT_EQ(Query(Root::CurrentUser, "Software\\Zentrix", "Folder"), Text("D:\\Other"));
}

TEST_F(RegistryFilesTest, RejectsGarbageNamingFileAndLineAndKeepsWhatItHad) {
  registry_.AddFile(scratch_.Write("good.reg", ExportFile("REGEDIT4")));
  const std::pair<std::string, std::string> bad[] = {
      {"\xFF\xFE\x00", "line 1"},
      {"hello world\n", "line 1"},
      {"REGEDIT4\n\"Orphan\"=\"x\"\n", "line 2"},
      {"REGEDIT4\n[HKEY_NOWHERE\\x]\n", "line 2"},
      {"REGEDIT4\n[HKEY_CURRENT_USER\\x\n", "line 2"},
      {"REGEDIT4\n[HKEY_CLASSES_ROOT\\ZXBV.Messenger\\Clsid]\n@=\"unterminated\n", "line 3"},
      {"REGEDIT4\n[HKEY_CLASSES_ROOT\\x]\n\"v\"=dword:xyz\n", "line 3"},
      {"REGEDIT4\n[HKEY_CLASSES_ROOT\\x]\n\"v\"=dword:123456789\n", "line 3"},
      {"REGEDIT4\n[HKEY_CLASSES_ROOT\\x]\n\"v\" \"w\"\n", "line 3"},
      {"REGEDIT4\n[HKEY_CLASSES_ROOT\\x]\njunk\n", "line 3"},
      {"WINE REGISTRY Version 2\n[a] 1\n\"v\"=\"x\\\"\n", "line 3"},
      {std::string("REGEDIT4\n[HKEY_CLASSES_ROOT\\x]\n\"v\"=\"a\0b\" tail\n", 46), "line 3"},
  };
  for (const auto& [bytes, where] : bad) {
    SCOPED_TRACE(bytes);
    const auto file = scratch_.Write("bad.reg", bytes);
    EXPECT_THAT([&] { registry_.AddFile(file); },
                testing::ThrowsMessage<std::runtime_error>(
                    testing::AllOf(testing::HasSubstr(file.string()), testing::HasSubstr(where))));
  }
  EXPECT_EQ(HostTypeLibrary(registry_), kHostLibrary);
  EXPECT_THROW(registry_.AddFile(scratch_.Path() / "absent.reg"), std::runtime_error);
}

TEST_F(RegistryFilesTest, FromEnvironmentReadsThePrefixAndTheNamedFiles) {
  scratch_.Write("wine/system.reg", kSystemHive);
  const auto extra = scratch_.Write("extra.reg",
                                    "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\Extra]\n@=\"yes\"\n");
  setenv("WINEPREFIX", (scratch_.Path() / "wine").c_str(), 1);
  setenv("EOWIZARD_REGISTRY", (":" + extra.string() + ":").c_str(), 1);
  const RegistryFiles registry = RegistryFiles::FromEnvironment();
  unsetenv("WINEPREFIX");
  unsetenv("EOWIZARD_REGISTRY");
  EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Extra", ""), Text("yes"));
}

}  // namespace
}  // namespace platform
