// The toolkit build: the window's pages, painted offscreen. The command
// starts its own application object for the fonts and images, on the
// offscreen platform unless one is named, so that kelvane-cli still runs
// without a display.
#include <QGuiApplication>
#include <cstdlib>
#include <memory>

#include "app/passageplanpdf.h"
#include "chart/catalogue.h"
#include "cli/planpdf.h"

namespace kelvane::cli {

std::string WritePlanPdf(const ProgramState& state, const PassagePlan& plan, std::string_view area,
                         const std::filesystem::path& file) {
  std::unique_ptr<QGuiApplication> owned;
  if (!QGuiApplication::instance()) {
    if (!std::getenv("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "kelvane-cli";
    static char* argv[] = {name, nullptr};
    owned = std::make_unique<QGuiApplication>(argc, argv);
  }
  const ChartCatalogue catalogue = ReadChartsTable(state.folders.DataRoot(), area);
  const QImage chart = app::PassagePlanChart(state, catalogue.charts, state.folders.ChartsFolder(), app::kPlanChartSize);
  return app::WritePassagePlanPdf(file, plan, chart.isNull() ? nullptr : &chart, nullptr);
}

}  // namespace kelvane::cli
