// The graph of a departure sweep: time taken against the hour of departure,
// one point an hour joined by a line, the longest and shortest passages
// named beside their points, and the hour the user marked picked out.
// Drawn by the sweep's results form and by the printed passage plan.
#pragma once

#include <QPainter>
#include <QRectF>
#include <vector>

namespace kelvane::forms {

struct DepartureGraphPoint { float depart = 0; float timeTaken = 0; };  // hours

// Draws time taken against departure hour into `area`, the marked row (or -1) highlighted.
void PaintDepartureGraph(QPainter& painter, const QRectF& area, const std::vector<DepartureGraphPoint>& points, int markedRow);

// The row whose departure lies nearest to the x coordinate `x` of a graph
// drawn into `area` (-1 when there are no points): what a mouse over the
// graph picks.
int NearestDepartureRow(const QRectF& area, const std::vector<DepartureGraphPoint>& points, double x);

}  // namespace kelvane::forms
