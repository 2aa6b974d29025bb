#include "vbrt/replacing_file.h"

#include <cerrno>
#include <system_error>
#include <utility>

namespace vbrt {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const char* what, const fs::path& file, int error) {
  throw std::system_error(error != 0 ? error : EIO, std::generic_category(),
                          std::string(what) + " '" + file.string() + "'");
}

}  // namespace

ReplacingFile::ReplacingFile(const fs::path& target) : target_(target) {
  std::error_code ec;
  if (fs::is_symlink(target_, ec)) {
    if (fs::path real = fs::weakly_canonical(target_, ec); !ec) target_ = std::move(real);
  }
  if (!fs::is_character_file(target_, ec)) {
    temp_ = target_;
    temp_ += ".eow-tmp";
  }
  const fs::path& written = temp_.empty() ? target_ : temp_;
  errno = 0;
  file_ = std::fopen(written.c_str(), "wb");
  if (file_ == nullptr) Fail("Cannot create", written, errno);
}

ReplacingFile::~ReplacingFile() { Drop(); }

void ReplacingFile::Write(std::string_view bytes) {
  if (file_ == nullptr) Fail("Cannot write", target_, EBADF);  // dropped after a failure
  errno = 0;
  if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) {
    Fail("Cannot write", temp_.empty() ? target_ : temp_, errno);
  }
}

void ReplacingFile::Commit() {
  if (file_ == nullptr) Fail("Cannot write", target_, EBADF);
  errno = 0;
  const bool flushed = std::fflush(file_) == 0;
  int error = errno;
  const bool closed = std::fclose(std::exchange(file_, nullptr)) == 0;
  if (!flushed || !closed) {
    if (flushed) error = errno;
    Drop();
    Fail("Cannot write", target_, error);
  }
  if (temp_.empty()) return;
  std::error_code ec;
  if (const fs::file_status old = fs::status(target_, ec); fs::exists(old)) {
    fs::permissions(temp_, old.permissions(), ec);  // a file that keeps none keeps the default
  }
  fs::rename(temp_, target_, ec);
  if (ec) {
    Drop();
    Fail("Cannot replace", target_, ec.value());
  }
  temp_.clear();
}

void ReplacingFile::Drop() noexcept {
  if (file_ != nullptr) std::fclose(std::exchange(file_, nullptr));
  if (!temp_.empty()) {
    std::error_code ignored;
    fs::remove(std::exchange(temp_, {}), ignored);
  }
}

}  // namespace vbrt
