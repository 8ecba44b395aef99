// The two pictures of the polar viewer and editor, drawn from the curves
// that wind/polarplot.h loads:
//   PolarPicture      boat speed against true wind angle, a half polar
//                     diagram with the wind's eye up the page, rays every
//                     10 degrees from 30 to 160 and rings of boat speed;
//   WindSpeedPicture  boat speed against true wind speed at one angle,
//                     wind across (0 to 30 kn), boat speed up.
// Each reports the pointer in the plot's own units (knots, degrees).
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "wind/polarplot.h"

namespace kelvane::forms {

class PolarPicture : public QWidget {
  Q_OBJECT
 public:
  explicit PolarPicture(QWidget* parent = nullptr);

  // The curve of one wind column and its title; `note` replaces the plot
  // with a line of text (no database, no set-up).
  void SetCurve(PolarCurve curve, float largest, float windSpeed);
  void SetNote(const std::string& note);
  // The angle of the row on show in the other picture, marked on the curve.
  void SetMarkedAngle(std::optional<float> angle);

  const PolarCurve& Curve() const { return curve_; }
  std::string Title() const { return title_; }
  // Where a true wind angle and a boat speed lie on the picture.
  QPointF PixelAt(float angle, float knots) const;

  // The pointer over the plot and a click on it, as ScreenToPolar gives it.
  std::function<void(PolarPosition)> pointerMoved;
  std::function<void(PolarPosition)> clicked;

  QSize sizeHint() const override { return {460, 460}; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  // The radius of the half disc, its centre and pixels per knot, for the
  // present size.
  double Radius() const;
  QPointF Centre() const;
  double PixelsPerKnot() const;
  PolarPosition At(QPointF pixel) const;

  PolarCurve curve_;
  PolarRings rings_;
  std::string title_;
  std::string note_;
  std::optional<float> marked_;
};

class WindSpeedPicture : public QWidget {
  Q_OBJECT
 public:
  explicit WindSpeedPicture(QWidget* parent = nullptr);

  void SetCurve(WindCurve curve, float largest, float windAngle);
  void SetNote(const std::string& note);

  const WindCurve& Curve() const { return curve_; }
  std::string Title() const { return title_; }

  // The pointer over the plot: wind speed and boat speed, knots.
  std::function<void(float, float)> pointerMoved;

  QSize sizeHint() const override { return {420, 300}; }

 protected:
  void paintEvent(QPaintEvent*) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  QRectF PlotArea() const;

  WindCurve curve_;
  PolarRings rings_;
  std::string title_;
  std::string note_;
};

}  // namespace kelvane::forms
