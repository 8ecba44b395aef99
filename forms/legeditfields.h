// The eight boxes of one leg (start and destination positions and names,
// speed, minutes stopped), shared by the route calculation form and its
// modification form.
#pragma once

#include <QLineEdit>

#include "forms/messages.h"
#include "passage/routeform.h"

namespace kelvane::forms {

struct LegEditFields {
  QLineEdit* txtroutestartlat = nullptr;
  QLineEdit* txtroutestartlong = nullptr;
  QLineEdit* txtroutedestlat = nullptr;
  QLineEdit* txtroutedestlong = nullptr;
  QLineEdit* txtroutestartname = nullptr;
  QLineEdit* txtroutedestname = nullptr;
  QLineEdit* txtroutespeed = nullptr;
  QLineEdit* txtStoppedFor = nullptr;

  LegEdit ReadLegEdit() const {
    LegEdit e;
    e.StartLat = FromQString(txtroutestartlat->text());
    e.StartLon = FromQString(txtroutestartlong->text());
    e.DestLat = FromQString(txtroutedestlat->text());
    e.DestLon = FromQString(txtroutedestlong->text());
    e.StartName = FromQString(txtroutestartname->text());
    e.DestName = FromQString(txtroutedestname->text());
    e.Speed = FromQString(txtroutespeed->text());
    e.StoppedFor = FromQString(txtStoppedFor->text());
    return e;
  }

  // Fills the boxes; the speed box is left alone when withSpeed is false.
  void ShowLegEdit(const LegEdit& e, bool withSpeed = true) {
    txtroutestartlat->setText(ToQString(e.StartLat));
    txtroutestartlong->setText(ToQString(e.StartLon));
    txtroutedestlat->setText(ToQString(e.DestLat));
    txtroutedestlong->setText(ToQString(e.DestLon));
    txtroutestartname->setText(ToQString(e.StartName));
    txtroutedestname->setText(ToQString(e.DestName));
    if (withSpeed) txtroutespeed->setText(ToQString(e.Speed));
    txtStoppedFor->setText(ToQString(e.StoppedFor));
  }
};

}  // namespace kelvane::forms
