#include "platform/regfile/registry_files.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "scratch_folder.h"

namespace platform {
namespace {

using Root = RegistryRoot;

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

// UTF-16 LE with a byte-order mark, as the registry editor writes its exports.
std::string Utf16(const std::string& ascii) {
  std::string bytes = "\xFF\xFE";
  for (char c : ascii) {
    bytes += c;
    bytes += '\0';
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
    "\"Cut\"=\"before\\0after\"\n"
    "\"Count\"=dword:0000001f\n"
    "\"Minus\"=dword:ffffffff\n"
    "\"Expand\"=str(2):\"%SystemRoot%\"\n"
    "\"Blob\"=hex:01,02,03,\\\n"
    "  04,05\n"
    "\"After\"=\"still read\"\n";

TEST(RegistryFiles, ReadsAWineHive) {
  ScratchFolder scratch;
  RegistryFiles registry;
  registry.AddFile(scratch.Write("system.reg", kSystemHive));

  EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
  auto value = [&](const char* name) {
    return registry.QueryRegValue(Root::LocalMachine, "software\\ZENTRIX\\Settings", name);
  };
  EXPECT_EQ(value("path"), RegistryValue(std::string("C:\\Program Files\\Zentrix\\")));
  EXPECT_EQ(value("Quote"), RegistryValue(std::string("say \"hi\"\xC3\xA9")));
  EXPECT_EQ(value("Cut"), RegistryValue(std::string("before")));
  EXPECT_EQ(value("Count"), RegistryValue(int32_t{31}));
  EXPECT_EQ(value("Minus"), RegistryValue(int32_t{-1}));
  EXPECT_EQ(value("Expand"), RegistryValue{});
  EXPECT_EQ(value("Blob"), RegistryValue{});
  EXPECT_EQ(value("After"), RegistryValue(std::string("still read")));
  EXPECT_EQ(value("Missing"), RegistryValue{});
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix\\Settings", "Count"),
            RegistryValue{});
}

TEST(RegistryFiles, UserClassesWinOverMachineClasses) {
  ScratchFolder scratch;
  RegistryFiles registry;
  registry.AddFile(scratch.Write("system.reg", kSystemHive));
  registry.AddFile(scratch.Write("user.reg",
                                 "WINE REGISTRY Version 2\n"
                                 ";; All keys relative to \\\\User\\\\S-1-5-21-1-2-3-1000\n"
                                 "\n"
                                 "[Software\\\\Classes\\\\ZXBV.Messenger\\\\Clsid] 1700000001\n"
                                 "@=\"{USER}\"\n"));
  EXPECT_EQ(registry.QueryRegValue(Root::ClassesRoot, "zxbv.messenger\\CLSID", ""),
            RegistryValue(std::string("{USER}")));
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Classes\\ZXBV.Messenger\\Clsid", ""),
            RegistryValue(std::string("{USER}")));
  // The machine's own value is still there underneath.
  EXPECT_EQ(registry.QueryRegValue(Root::LocalMachine, "Software\\Classes\\ZXBV.Messenger\\Clsid", ""),
            RegistryValue(std::string(kMessengerClsid)));
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

TEST(RegistryFiles, ReadsExportFilesInBothVersionsAndEncodings) {
  ScratchFolder scratch;
  const std::pair<const char*, std::string> files[] = {
      {"regedit4.reg", ExportFile("REGEDIT4")},
      {"utf16.reg", Utf16(ExportFile("Windows Registry Editor Version 5.00"))},
      {"plain5.reg", ExportFile("Windows Registry Editor Version 5.00")},
  };
  for (const auto& [name, bytes] : files) {
    SCOPED_TRACE(name);
    RegistryFiles registry;
    registry.AddFile(scratch.Write(name, bytes));
    EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
    EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Folder"),
              RegistryValue(std::string("C:\\Zentrix")));
    EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Level"),
              RegistryValue(int32_t{2}));
  }
}

TEST(RegistryFiles, LaterFilesDeleteAndReplace) {
  ScratchFolder scratch;
  RegistryFiles registry;
  registry.AddFile(scratch.Write("a.reg", ExportFile("REGEDIT4")));
  registry.AddFile(scratch.Write("b.reg",
                                 "REGEDIT4\n"
                                 "[-HKEY_CLASSES_ROOT\\ZXBV.Messenger]\n"
                                 "[HKEY_CURRENT_USER\\Software\\Zentrix]\n"
                                 "\"Level\"=-\n"
                                 "\"Folder\"=\"D:\\\\Other\"\n"));
  EXPECT_EQ(HostTypeLibrary(registry), "");
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Level"), RegistryValue{});
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Zentrix", "Folder"),
            RegistryValue(std::string("D:\\Other")));
}

TEST(RegistryFiles, RejectsGarbageNamingFileAndLineAndKeepsWhatItHad) {
  ScratchFolder scratch;
  RegistryFiles registry;
  registry.AddFile(scratch.Write("good.reg", ExportFile("REGEDIT4")));
  const std::pair<std::string, std::string> bad[] = {
      {"", "line 1"},
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
    const auto file = scratch.Write("bad.reg", bytes);
    try {
      registry.AddFile(file);
      ADD_FAILURE() << "accepted";
    } catch (const std::runtime_error& error) {
      EXPECT_NE(std::string(error.what()).find(file.string()), std::string::npos) << error.what();
      EXPECT_NE(std::string(error.what()).find(where), std::string::npos) << error.what();
    }
  }
  EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
  EXPECT_THROW(registry.AddFile(scratch.Path() / "absent.reg"), std::runtime_error);
}

TEST(RegistryFiles, CutOffFilesEitherReadOrFailCleanly) {
  ScratchFolder scratch;
  const std::string whole[] = {kSystemHive, Utf16(ExportFile("Windows Registry Editor Version 5.00"))};
  for (const std::string& bytes : whole) {
    for (std::size_t size = 0; size <= bytes.size(); ++size) {
      RegistryFiles registry;
      try {
        registry.AddFile(scratch.Write("cut.reg", bytes.substr(0, size)));
      } catch (const std::runtime_error&) {
      }
    }
  }
}

TEST(RegistryFiles, FromEnvironmentReadsThePrefixAndTheNamedFiles) {
  ScratchFolder scratch;
  scratch.Write("wine/system.reg", kSystemHive);
  const auto extra = scratch.Write("extra.reg",
                                   "REGEDIT4\n[HKEY_CURRENT_USER\\Software\\Extra]\n@=\"yes\"\n");
  setenv("WINEPREFIX", (scratch.Path() / "wine").c_str(), 1);
  setenv("EOWIZARD_REGISTRY", (":" + extra.string() + ":").c_str(), 1);
  const RegistryFiles registry = RegistryFiles::FromEnvironment();
  unsetenv("WINEPREFIX");
  unsetenv("EOWIZARD_REGISTRY");
  EXPECT_EQ(HostTypeLibrary(registry), kHostLibrary);
  EXPECT_EQ(registry.QueryRegValue(Root::CurrentUser, "Software\\Extra", ""),
            RegistryValue(std::string("yes")));
}

}  // namespace
}  // namespace platform
