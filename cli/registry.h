// How kelvane-cli grows: each subsystem keeps its subcommands in a file of
// its own (commands_<subsystem>.cpp) that registers an adder at start-up:
//
//   static kelvane::cli::Registrar gpx([](CLI::App& app, kelvane::cli::Context& ctx) { ... });
//
// main() makes the application, adds the global options, then calls every
// adder. The executable links the object files directly, so the registrars
// are never dropped.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "core/datatree.h"

namespace kelvane::cli {

// What every command shares: the folder options of the command line.
struct Context {
  FolderOverrides overrides;
  int exitCode = 0;  // set by the command that ran
  Folders folders() const { return FindFolders(overrides); }
};

using Adder = std::function<void(CLI::App&, Context&)>;

std::vector<Adder>& Adders();

struct Registrar {
  explicit Registrar(Adder adder) { Adders().push_back(std::move(adder)); }
};

// A command that several files fill with subcommands (`wind`): the one
// already made, or a new one needing a subcommand. The adders run in no
// set order, so each file asks for it this way.
inline CLI::App* SharedCommand(CLI::App& app, const std::string& name, const std::string& description) {
  for (CLI::App* sub : app.get_subcommands([&name](CLI::App* s) { return s->get_name() == name; })) return sub;
  CLI::App* command = app.add_subcommand(name, description);
  command->require_subcommand(1);
  return command;
}
// A variation as the commands take it: "2W" is -2, "3.5E" or "3.5" is 3.5.
float VariationValue(const std::string& text);

inline constexpr const char* kWindCommandHelp = "Wind: the stored wind of the last GRIB import, the wind calculator";

}  // namespace kelvane::cli
