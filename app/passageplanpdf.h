// The printed passage plan: the pages of a PassagePlan on any paged device
// (QPdfWriter for a file, QPrinter for paper), and the picture of the chart
// with the route and its calculated track that goes with it.
#pragma once

#include <QImage>
#include <QPagedPaintDevice>
#include <QSize>
#include <filesystem>
#include <string>
#include <vector>

#include "chart/catalogue.h"
#include "passage/passageplan.h"
#include "state/programstate.h"

namespace kelvane::app {

// The chart picture's size in pixels: the chart's lettering and the route's
// labels are drawn at their screen size, and this many pixels across the
// printed width (about 7 inches) makes them legible on paper.
inline constexpr QSize kPlanChartSize{1200, 900};
// The departure graph's size in pixels, as wide as the chart picture.
inline constexpr QSize kPlanGraphSize{1200, 600};

// The most detailed chart of `catalogue` that holds every point of the
// route and of its track (or, when none holds them all, the one holding
// most of them), cut to the route with a margin of a fifth on each side and
// scaled to fit `size`, with the route and the calculated track drawn on it
// by the chart window's own layers. A null image when no chart of the area
// holds any of the route or its image cannot be read.
QImage PassagePlanChart(const ProgramState& state, const std::vector<ChartRecord>& catalogue,
                        const std::filesystem::path& chartsFolder, QSize size);

// The departure sweep's graph of the route (time taken against the hour
// of departure), as the sweep's results form draws it; a null image when no
// sweep of the route as it stands was run.
QImage PassagePlanDepartureGraph(const PassageState& passage, QSize size);

// Paints the plan over as many pages as it needs, from the device's first
// page: heading, warnings, departure and arrival, the legs table with the
// streams of each leg, the high and low waters, sunrise and sunset, then
// the chart picture and, when given, the departure graph.
void PaintPassagePlan(QPagedPaintDevice& device, const PassagePlan& plan, const QImage* chart,
                      const QImage* departureGraph);

// The plan as an A4 PDF file, written beside its name and then moved over
// it, so that a failed write never leaves half a file. "" or the message.
std::string WritePassagePlanPdf(const std::filesystem::path& file, const PassagePlan& plan, const QImage* chart,
                                const QImage* departureGraph);

}  // namespace kelvane::app
