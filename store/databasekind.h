// What kind of database a file holds. A file is recognised by its first
// bytes, never by its name:
//   - "SQLite format 3" at offset 0: SQLite 3;
//   - "Standard Jet DB" at offset 4: Jet 3 when the version byte at 0x14 is
//     0, Jet 4 when it is 1 (Access 2007 and later are not read).
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace kelvane {

enum class DatabaseKind { Missing, Unknown, SQLite, Jet3, Jet4 };

// What the first bytes of a file say it is. Fewer bytes than a header are
// Unknown; an empty span is Unknown too.
DatabaseKind RecogniseDatabaseBytes(std::span<const std::uint8_t> header);
// The same for a file on disk; Missing when it can't be opened for reading.
DatabaseKind RecogniseDatabase(const std::filesystem::path& file);
const char* DatabaseKindName(DatabaseKind kind);

}  // namespace kelvane
