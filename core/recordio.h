// Fixed binary records and whole-file writes.
//
// The program's own binary files (settings, wind set-up, harmonic constants,
// stream diamonds, legacy waypoints and routes) are fixed-length records of
// little-endian numbers and blank-padded texts at fixed offsets. These
// helpers read such fields out of a byte buffer, with any byte past the end
// of a short buffer reading as zero (a number) or blank (a text), and write
// them back. Files are replaced atomically.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

using Bytes = std::vector<std::uint8_t>;

// Reads fields at offsets relative to `base`. Out-of-range bytes are zero.
class RecordReader {
 public:
  explicit RecordReader(const Bytes& bytes, std::size_t base = 0) : bytes_(bytes), base_(base) {}
  std::uint8_t U8(std::size_t offset) const;
  std::int16_t I16(std::size_t offset) const;
  std::int32_t I32(std::size_t offset) const;
  float F32(std::size_t offset) const;
  double F64(std::size_t offset) const;
  // A fixed-width text without its blank padding (trailing blanks and NULs
  // removed). Bytes past the end read as blanks.
  std::string Text(std::size_t offset, std::size_t width) const;
  // The same without removing anything (bytes past the end are blanks).
  std::string RawText(std::size_t offset, std::size_t width) const;

 private:
  const Bytes& bytes_;
  std::size_t base_;
};

// Writes fields at offsets relative to `base`, growing the buffer as needed.
class RecordWriter {
 public:
  explicit RecordWriter(Bytes& bytes, std::size_t base = 0) : bytes_(bytes), base_(base) {}
  void U8(std::size_t offset, std::uint8_t value);
  void I16(std::size_t offset, std::int16_t value);
  void I32(std::size_t offset, std::int32_t value);
  void F32(std::size_t offset, float value);
  void F64(std::size_t offset, double value);
  // Blank-padded to `width`, cut to it when longer (never inside a UTF-8
  // character).
  void Text(std::size_t offset, std::size_t width, std::string_view text);

 private:
  void Ensure(std::size_t end);
  Bytes& bytes_;
  std::size_t base_;
};

// A text read from a file: kept as it is when it is valid UTF-8, otherwise
// taken as Windows-1252 (the files of the Windows program) and converted.
std::string TextFromFile(std::string_view raw);
bool IsValidUtf8(std::string_view text);
// UTF-8 text cut to at most `width` bytes without splitting a character.
std::string CutUtf8(std::string_view text, std::size_t width);

// Reads a whole file. Empty optional when it cannot be opened or is larger
// than maxBytes.
std::optional<Bytes> ReadFileBytes(const std::filesystem::path& file,
                                   std::uintmax_t maxBytes = 256u * 1024u * 1024u);

// Replaces `file` with `bytes`: writes a temporary file in the same folder,
// flushes it, and renames it over the old one, so that a crash leaves either
// the old file or the new one and never a torn one. False on failure, with
// the old file untouched.
bool WriteFileAtomic(const std::filesystem::path& file, const void* data, std::size_t size);
inline bool WriteFileAtomic(const std::filesystem::path& file, const Bytes& bytes) {
  return WriteFileAtomic(file, bytes.data(), bytes.size());
}
inline bool WriteFileAtomic(const std::filesystem::path& file, std::string_view text) {
  return WriteFileAtomic(file, text.data(), text.size());
}

}  // namespace kelvane
