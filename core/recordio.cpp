#include "core/recordio.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <random>

#include "core/text.h"

namespace kelvane {

std::uint8_t RecordReader::U8(std::size_t offset) const {
  std::size_t at = base_ + offset;
  return at < bytes_.size() ? bytes_[at] : 0;
}

std::int16_t RecordReader::I16(std::size_t offset) const {
  return static_cast<std::int16_t>(U8(offset) | (U8(offset + 1) << 8));
}

std::int32_t RecordReader::I32(std::size_t offset) const {
  std::uint32_t v = static_cast<std::uint32_t>(U8(offset)) | (static_cast<std::uint32_t>(U8(offset + 1)) << 8) |
                    (static_cast<std::uint32_t>(U8(offset + 2)) << 16) |
                    (static_cast<std::uint32_t>(U8(offset + 3)) << 24);
  return static_cast<std::int32_t>(v);
}

float RecordReader::F32(std::size_t offset) const {
  std::uint32_t v = static_cast<std::uint32_t>(I32(offset));
  float f;
  std::memcpy(&f, &v, sizeof f);
  return f;
}

double RecordReader::F64(std::size_t offset) const {
  std::uint64_t v = static_cast<std::uint32_t>(I32(offset)) |
                    (static_cast<std::uint64_t>(static_cast<std::uint32_t>(I32(offset + 4))) << 32);
  double d;
  std::memcpy(&d, &v, sizeof d);
  return d;
}

std::string RecordReader::RawText(std::size_t offset, std::size_t width) const {
  std::string s(width, ' ');
  for (std::size_t i = 0; i < width; ++i) {
    std::size_t at = base_ + offset + i;
    if (at < bytes_.size()) s[i] = static_cast<char>(bytes_[at]);
  }
  return s;
}

std::string RecordReader::Text(std::size_t offset, std::size_t width) const {
  return TextFromFile(TrimFieldPadding(RawText(offset, width)));
}

void RecordWriter::Ensure(std::size_t end) {
  if (bytes_.size() < base_ + end) bytes_.resize(base_ + end, 0);
}

void RecordWriter::U8(std::size_t offset, std::uint8_t value) {
  Ensure(offset + 1);
  bytes_[base_ + offset] = value;
}

void RecordWriter::I16(std::size_t offset, std::int16_t value) {
  auto v = static_cast<std::uint16_t>(value);
  U8(offset, static_cast<std::uint8_t>(v & 0xFF));
  U8(offset + 1, static_cast<std::uint8_t>(v >> 8));
}

void RecordWriter::I32(std::size_t offset, std::int32_t value) {
  auto v = static_cast<std::uint32_t>(value);
  for (int i = 0; i < 4; ++i) U8(offset + static_cast<std::size_t>(i), static_cast<std::uint8_t>(v >> (8 * i)));
}

void RecordWriter::F32(std::size_t offset, float value) {
  std::uint32_t v;
  std::memcpy(&v, &value, sizeof v);
  I32(offset, static_cast<std::int32_t>(v));
}

void RecordWriter::F64(std::size_t offset, double value) {
  std::uint64_t v;
  std::memcpy(&v, &value, sizeof v);
  I32(offset, static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
  I32(offset + 4, static_cast<std::int32_t>(static_cast<std::uint32_t>(v >> 32)));
}

void RecordWriter::Text(std::size_t offset, std::size_t width, std::string_view text) {
  std::string cut = CutUtf8(text, width);
  Ensure(offset + width);
  for (std::size_t i = 0; i < width; ++i)
    bytes_[base_ + offset + i] = i < cut.size() ? static_cast<std::uint8_t>(cut[i]) : ' ';
}

bool IsValidUtf8(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    auto c = static_cast<unsigned char>(text[i]);
    std::size_t n = c < 0x80 ? 0 : (c >> 5) == 0x6 ? 1 : (c >> 4) == 0xE ? 2 : (c >> 3) == 0x1E ? 3 : 99;
    if (n == 99 || (n == 1 && c < 0xC2)) return false;
    if (i + n >= text.size()) return false;  // the character runs past the end
    for (std::size_t k = 1; k <= n; ++k)
      if ((static_cast<unsigned char>(text[i + k]) >> 6) != 0x2) return false;
    i += n + 1;
  }
  return true;
}

namespace {

// Windows-1252 code points of 0x80..0x9F; the rest of the upper half is
// Latin-1.
const char32_t kCp1252High[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                  0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

}  // namespace

std::string TextFromFile(std::string_view raw) {
  if (IsValidUtf8(raw)) return std::string(raw);
  std::string out;
  for (char ch : raw) {
    auto c = static_cast<unsigned char>(ch);
    if (c < 0x80)
      out += ch;
    else if (c < 0xA0)
      AppendUtf8(out, kCp1252High[c - 0x80]);
    else
      AppendUtf8(out, c);
  }
  return out;
}

std::string CutUtf8(std::string_view text, std::size_t width) {
  if (text.size() <= width) return std::string(text);
  std::size_t end = width;
  // Step back over continuation bytes so that no character is split.
  while (end > 0 && (static_cast<unsigned char>(text[end]) >> 6) == 0x2) --end;
  return std::string(text.substr(0, end));
}

std::optional<Bytes> ReadFileBytes(const std::filesystem::path& file, std::uintmax_t maxBytes) {
  std::error_code ec;
  if (!std::filesystem::is_regular_file(file, ec)) return std::nullopt;
  auto size = std::filesystem::file_size(file, ec);
  if (ec || size > maxBytes) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  if (!in) return std::nullopt;
  Bytes bytes(static_cast<std::size_t>(size));
  in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  bytes.resize(static_cast<std::size_t>(in.gcount()));
  return bytes;
}

bool WriteFileAtomic(const std::filesystem::path& file, const void* data, std::size_t size) {
  std::filesystem::path folder = file.parent_path().empty() ? "." : file.parent_path();
  std::string pattern = (folder / ("." + file.filename().string() + ".XXXXXX")).string();
  std::vector<char> name(pattern.begin(), pattern.end());
  name.push_back('\0');
  int fd = ::mkstemp(name.data());
  if (fd < 0) return false;
  const char* p = static_cast<const char*>(data);
  std::size_t left = size;
  bool ok = true;
  while (left > 0) {
    ssize_t n = ::write(fd, p, left);
    if (n <= 0) {
      ok = false;
      break;
    }
    p += n;
    left -= static_cast<std::size_t>(n);
  }
  if (ok) ok = ::fsync(fd) == 0;
  // The temporary file is made 0600; give the new file ordinary rights.
  if (ok) ::fchmod(fd, 0644);
  if (::close(fd) != 0) ok = false;
  if (ok) ok = ::rename(name.data(), file.c_str()) == 0;
  if (!ok) ::unlink(name.data());
  return ok;
}

}  // namespace kelvane
