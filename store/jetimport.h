// Jet databases (Access 97 and 2000 files) read through mdbtools' libmdb.
//
// Every user table is copied into an in-memory SQLite database, so that
// the same SQL text runs on files written by other programs. Such a copy
// is read-only in effect: nothing is written back to the Jet file. Jet
// dates become text "YYYY-MM-DD HH:MM:SS"; OLE objects are not carried
// over.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "store/databasekind.h"

struct sqlite3;

namespace kelvane {

// The text "YYYY-MM-DD HH:MM:SS" of a Jet date (days from 1899-12-30, the
// fraction the time of day); "" for a value no calendar can hold.
std::string JetDateText(double value);

// The in-memory copy of a Jet database. db is null when the file could not
// be read, and reason then says why; otherwise the caller owns db and
// closes it. tables are the user tables copied, in the order of the file's
// catalogue.
struct JetCopy {
  sqlite3* db = nullptr;
  std::vector<std::string> tables;
  std::string reason;
};

// kind is Jet3 or Jet4, as recognised from the file's header. The file or
// the bytes are checked for the size a catalogue needs before libmdb reads
// a page of them.
JetCopy CopyJetFile(const std::filesystem::path& file, DatabaseKind kind);
JetCopy CopyJetBytes(std::span<const std::uint8_t> bytes, DatabaseKind kind);

}  // namespace kelvane
