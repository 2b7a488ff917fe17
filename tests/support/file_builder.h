#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

#include "app/types.h"

namespace trendaro {

// The bytes of a file, appended field by field in little-endian order.
class FileBuilder {
 public:
  FileBuilder& u8_field(u8 value) { return append(&value, sizeof value); }
  FileBuilder& i16_field(i16 value) { return append(&value, sizeof value); }
  FileBuilder& i32_field(i32 value) { return append(&value, sizeof value); }
  FileBuilder& f32_field(f32 value) { return append(&value, sizeof value); }
  FileBuilder& f64_field(f64 value) { return append(&value, sizeof value); }
  FileBuilder& bytes_field(std::string_view bytes) { return append(bytes.data(), bytes.size()); }
  // A text of fixed width, filled up with `filler`.
  FileBuilder& fixed_text(std::string_view text, std::size_t width, char filler = ' ') {
    std::string field(text.substr(0, width));
    field.resize(width, filler);
    return bytes_field(field);
  }
  // An i16 length and the bytes, which are those of the file (Windows-1252).
  FileBuilder& counted_text(std::string_view text) {
    return i16_field(static_cast<i16>(text.size())).bytes_field(text);
  }
  FileBuilder& values(const std::vector<f64>& samples) {
    return append(samples.data(), samples.size() * sizeof(f64));
  }
  FileBuilder& zeros(std::size_t count) {
    bytes_.append(count, '\0');
    return *this;
  }

  // Writes a field over bytes that are there already.
  template <typename Number>
  FileBuilder& patch(std::size_t position, Number value) {
    if (position + sizeof value > bytes_.size()) throw std::out_of_range("patch behind the end");
    std::memcpy(bytes_.data() + position, &value, sizeof value);
    return *this;
  }

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  FileBuilder& append(const void* field, std::size_t count) {
    if (count > 0) bytes_.append(static_cast<const char*>(field), count);
    return *this;
  }

  std::string bytes_;
};

// A folder of its own for a test, removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "trendaro-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  // Full path of a name inside.
  [[nodiscard]] std::string file(const std::string& name) const { return path_ + "/" + name; }
  [[nodiscard]] const std::string& path() const { return path_; }

 private:
  std::string path_;
};

inline void write_file(const std::string& path, std::string_view bytes) {
  std::ofstream stream(path, std::ios::binary | std::ios::trunc);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  stream.flush();
  if (!stream) throw std::runtime_error("cannot write " + path);
}

inline std::string read_file(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// A file with the bytes given, removed at the end.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string_view bytes, const std::string& name = "sample.dat")
      : path_(folder_.file(name)) {
    rewrite(bytes);
  }
  explicit TemporaryFile(const FileBuilder& builder, const std::string& name = "sample.dat")
      : TemporaryFile(builder.bytes(), name) {}

  [[nodiscard]] const std::string& path() const { return path_; }
  void rewrite(std::string_view bytes) const { write_file(path_, bytes); }

 private:
  TemporaryFolder folder_;
  std::string path_;
};

}  // namespace trendaro
