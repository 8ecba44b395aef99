// init and settings: lay out the data tree, show the settings record.
#include <iostream>

#include "cli/registry.h"
#include "core/datatree.h"
#include "core/settings.h"
#include "state/startuphooks.h"

namespace kelvane::cli {
namespace {

int Init(const Context& ctx) {
  Folders folders = ctx.folders();
  CreateDataTree(folders);
  if (auto seed = SeedFolder(KELVANE_SEED_DIR)) SeedDataRoot(folders, *seed);
  LoadSettings(folders, ProgramStartupHooks());
  std::cout << "DataRoot = " << folders.DataRoot().string() << "\n"
            << "UserFolder = " << folders.userFolder.string() << "\n"
            << "PicturesFolder = " << folders.picturesFolder.string() << "\n"
            << "SettingsFile = " << folders.SettingsFile().string() << "\n"
            << "WindConfigFile = " << folders.WindConfigFile().string() << "\n";
  return 0;
}

int ShowSettings(const Context& ctx) {
  Folders folders = ctx.folders();
  if (!std::filesystem::exists(folders.SettingsFile())) {
    std::cerr << "No settings file at " << folders.SettingsFile().string() << " (run kelvane-cli init)\n";
    return 1;
  }
  for (const std::string& line : SettingsLines(ReadSettings(folders.SettingsFile()))) std::cout << line << "\n";
  return 0;
}

Registrar coreCommands([](CLI::App& app, Context& ctx) {
  auto* init = app.add_subcommand("init", "Lay out the data tree and write the settings and wind files as start-up does");
  init->callback([&ctx] { ctx.exitCode = Init(ctx); });
  auto* settings = app.add_subcommand("settings", "The settings record");
  settings->require_subcommand(1);
  auto* show = settings->add_subcommand("show", "One 'Name = value' line per field of the record");
  show->callback([&ctx] { ctx.exitCode = ShowSettings(ctx); });
});

}  // namespace
}  // namespace kelvane::cli
