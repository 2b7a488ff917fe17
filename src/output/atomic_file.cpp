#include "output/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <sys/stat.h>
#include <unistd.h>

namespace trendaro {
namespace {

bool write_all(int descriptor, std::string_view contents) {
  while (!contents.empty()) {
    const ssize_t written = ::write(descriptor, contents.data(), contents.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    contents.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// mkstemp makes files for the owner alone; a new file gets the rights that any other new file gets.
bool give_usual_rights(int descriptor, const std::string& path) {
  struct stat former {};
  if (::stat(path.c_str(), &former) == 0) return ::fchmod(descriptor, former.st_mode & 07777) == 0;
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return ::fchmod(descriptor, 0666 & ~mask) == 0;
}

// `write(descriptor, name)` fills the temporary file.
template <typename Write>
bool replace(const std::string& path, Write&& write) {
  std::string temporary = path + ".XXXXXX";
  const int descriptor = ::mkstemp(temporary.data());
  if (descriptor < 0) return false;
  bool done = write(descriptor, temporary) && give_usual_rights(descriptor, path) && ::fsync(descriptor) == 0;
  done = ::close(descriptor) == 0 && done;
  if (done && std::rename(temporary.c_str(), path.c_str()) == 0) return true;
  ::unlink(temporary.c_str());
  return false;
}

}  // namespace

bool replace_file(const std::string& path, const std::function<std::string()>& next_piece) {
  return replace(path, [&](int descriptor, const std::string&) {
    for (std::string piece = next_piece(); !piece.empty(); piece = next_piece())
      if (!write_all(descriptor, piece)) return false;
    return true;
  });
}

bool replace_file_with(const std::string& path,
                       const std::function<bool(const std::string& temporary)>& write) {
  return replace(path, [&](int, const std::string& temporary) { return write(temporary); });
}

bool replace_file(const std::string& path, std::string_view contents) {
  return replace_file(path, [&] { return std::string(std::exchange(contents, {})); });
}

}  // namespace trendaro
