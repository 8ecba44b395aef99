// kelvane-cli: the headless front door to Kelvane's libraries.
#include <CLI/CLI.hpp>
#include <iostream>

#include "cli/registry.h"

namespace kelvane::cli {

std::vector<Adder>& Adders() {
  static std::vector<Adder> adders;
  return adders;
}

}  // namespace kelvane::cli

int main(int argc, char** argv) {
  using namespace kelvane::cli;
  CLI::App app{"kelvane-cli: passage planning calculations without the chart window"};
  app.require_subcommand(1);
  Context ctx;
  app.add_option("--data-root", ctx.overrides.dataRoot, "Data root: charts, harmonic constants, the user's working data");
  app.add_option("--user-folder", ctx.overrides.userFolder, "Per-user folder holding KelvaneFiles/ and the settings");
  app.add_option("--pictures-folder", ctx.overrides.picturesFolder, "Folder of the pictures of dive sites");
  for (const Adder& add : Adders()) add(app, ctx);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    return app.exit(e);
  }
  return ctx.exitCode;
}
