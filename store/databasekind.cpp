#include "store/databasekind.h"

#include <cstring>
#include <fstream>

namespace kelvane {
namespace {

constexpr char kSQLiteMagic[] = "SQLite format 3";  // 16 bytes with its NUL
constexpr char kJetMagic[] = "Standard Jet DB";     // at offset 4, 16 bytes with its NUL
constexpr std::size_t kJetVersionOffset = 0x14;

}  // namespace

DatabaseKind RecogniseDatabaseBytes(std::span<const std::uint8_t> header) {
  if (header.size() >= sizeof(kSQLiteMagic) && std::memcmp(header.data(), kSQLiteMagic, sizeof(kSQLiteMagic)) == 0)
    return DatabaseKind::SQLite;
  if (header.size() > kJetVersionOffset && std::memcmp(header.data() + 4, kJetMagic, sizeof(kJetMagic)) == 0) {
    switch (header[kJetVersionOffset]) {
      case 0: return DatabaseKind::Jet3;
      case 1: return DatabaseKind::Jet4;
      default: return DatabaseKind::Unknown;  // Access 2007 and later are not area databases
    }
  }
  return DatabaseKind::Unknown;
}

DatabaseKind RecogniseDatabase(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) return DatabaseKind::Missing;
  std::uint8_t header[32] = {};
  in.read(reinterpret_cast<char*>(header), sizeof(header));
  return RecogniseDatabaseBytes(std::span<const std::uint8_t>(header, static_cast<std::size_t>(in.gcount())));
}

const char* DatabaseKindName(DatabaseKind kind) {
  switch (kind) {
    case DatabaseKind::Missing: return "missing";
    case DatabaseKind::Unknown: return "unknown";
    case DatabaseKind::SQLite: return "SQLite 3";
    case DatabaseKind::Jet3: return "Jet 3";
    case DatabaseKind::Jet4: return "Jet 4";
  }
  return "unknown";
}

}  // namespace kelvane
