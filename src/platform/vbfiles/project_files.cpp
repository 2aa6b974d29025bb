#include "platform/vbfiles/project_files.h"

#include <system_error>

#include "vbrt/error.h"
#include "vbrt/replacing_file.h"

namespace platform::vbfiles {
namespace {

// The fixed compile settings of a new ActiveX DLL project, after its name and description.
constexpr std::string_view kDllSettings =
    "CompatibleMode=\"1\"\r\n"
    "MajorVer=1\r\n"
    "MinorVer=0\r\n"
    "RevisionVer=0\r\n"
    "AutoIncrementVer=0\r\n"
    "ServerSupportFiles=0\r\n"
    "VersionCompanyName=\"\"\r\n"
    "CompilationType=0\r\n"
    "OptimizationType=0\r\n"
    "CodeViewDebugInfo=0\r\n"
    "NoAliasing=0\r\n"
    "BoundsCheck=0\r\n"
    "OverflowCheck=0\r\n"
    "FlPointCheck=0\r\n"
    "FDIVCheck=0\r\n"
    "UnroundedFP=0\r\n"
    "StartMode=1\r\n"
    "Unattended=0\r\n"
    "Retained=0\r\n"
    "ThreadPerObject=0\r\n"
    "MaxNumberOfThreads=1\r\n"
    "ThreadingModel=1\r\n"
    "\r\n"
    "[MS Transaction Server]\r\n"
    "AutoRefresh=1\r\n";

constexpr std::string_view kClassHeader =
    "VERSION 1.0 CLASS\r\n"
    "BEGIN\r\n"
    "  MultiUse = -1  'True\r\n"
    "  Persistable = 0  'NotPersistable\r\n"
    "  DataBindingBehavior = 0  'vbNone\r\n"
    "  DataSourceBehavior  = 0  'vbNone\r\n"
    "  MTSTransactionMode  = 0  'NotAnMTSObject\r\n"
    "END\r\n";

std::string AttributeName(std::string_view name) {
  return "Attribute VB_Name = \"" + std::string(name) + "\"\r\n";
}

[[noreturn]] void FailWrite(const std::filesystem::path& target, const std::error_code& ec) {
  int number = vbrt::kPathFileAccessError;
  if (ec == std::errc::no_such_file_or_directory || ec == std::errc::not_a_directory) {
    number = vbrt::kPathNotFound;
  } else if (ec == std::errc::permission_denied || ec == std::errc::read_only_file_system) {
    number = vbrt::kPermissionDenied;
  } else if (ec == std::errc::no_space_on_device || ec == std::errc::file_too_large) {
    number = vbrt::kDiskFull;
  }
  throw vbrt::VbError(number, "Cannot write '" + target.string() + "': " + ec.message());
}

}  // namespace

std::string ProjectFileText(const ProjectFile& project) {
  std::string text = "Type=OleDll\r\n";
  for (const TypeLibReference& ref : project.references) {
    text += "Reference=*\\G" + ref.guid + "#" + std::to_string(ref.major) + "." +
            std::to_string(ref.minor) + "#0#" + ref.path + "#" + ref.description + "\r\n";
  }
  for (const ComponentEntry& component : project.components) {
    text += (component.isClass ? "Class=" : "Module=") + component.name + "; " +
            component.file + "\r\n";
  }
  text += "Startup=\"(None)\"\r\n";
  text += "Command32=\"\"\r\n";
  text += "Name=\"" + project.name + "\"\r\n";
  text += "HelpContextID=\"0\"\r\n";
  text += "Description=\"" + project.description + "\"\r\n";
  text += kDllSettings;
  return text;
}

std::string ClassFileHeader(std::string_view name) {
  std::string text(kClassHeader);
  text += AttributeName(name);
  text +=
      "Attribute VB_GlobalNameSpace = False\r\n"
      "Attribute VB_Creatable = True\r\n"
      "Attribute VB_PredeclaredId = False\r\n"
      "Attribute VB_Exposed = True\r\n";
  return text;
}

std::string ModuleFileHeader(std::string_view name) { return AttributeName(name); }

void ReplaceFile(const std::filesystem::path& target, std::span<const std::string_view> parts) {
  try {
    vbrt::ReplacingFile file(target);
    for (const std::string_view bytes : parts) file.Write(bytes);
    file.Commit();
  } catch (const std::system_error& failure) {
    FailWrite(target, failure.code());
  }
}

}  // namespace platform::vbfiles
