// The round of the configuration forms: read the record, take the controls,
// check them in a fixed order, write the record.
//
// The largest form (wrecks and display) holds every control; the general
// and stream forms show subsets of the same checks and messages. A control
// a form does not show is left empty here and its step is skipped. The
// checks stop at the first failure: its message is returned and the file is
// not written, though the fields set before the failing step stay changed
// in the record passed in, as the form's fields do until the next read.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/settings.h"

namespace kelvane {

// The controls, as the texts and states the form holds.
struct ConfigureControls {
  // Scales of automatic chart change, in percent ("18", "150").
  std::optional<std::string> cmbLower, cmbUpper;
  // Beside them: the chart boundaries' name and number labels, and the
  // automatic change of chart by zoom.
  std::optional<bool> chkShowChartName, chkShowChartNum, chkAutoChartSwitch;
  // Stream and wind fonts.
  std::optional<std::int32_t> StreamFontColour, WindFontColour;
  std::optional<std::string> cmbStreamFontSize, cmbWindFontSize;
  // Passage settings.
  std::optional<std::string> Txtvariation;    // "2W", "3.5E"
  std::optional<std::string> txtErrorCircle;  // acceptable error, nm
  std::optional<std::string> cmbThreshold;    // stream report threshold
  std::optional<std::string> txtSearchCircle; // pick distance, nm
  std::optional<std::string> Txtboatspeed;    // knots
  std::optional<bool> optSummerTime;
  std::optional<std::string> txtCPAWind;      // closest sailing angle, degrees
  std::optional<bool> chkHideStreamId;
  std::optional<std::string> cmbLineSize;
  std::optional<std::string> txtCalcInterval; // minutes
  std::optional<bool> chkLeeway;
  std::optional<bool> chkShowwind;
  std::optional<std::string> txtLeeway;       // degrees
  std::optional<bool> chkUseTides;
  // Wind barbs.
  std::optional<std::string> cmbBarbWeight, cmbBarbLength, cmbBarbSpacing;
  std::optional<bool> chkBarbDisplayText, chkUseSmartMet;
  // Stream arrows.
  std::optional<std::string> cmbStreamLineWidth, cmbStreamLength;
  std::optional<bool> chkStreamFilled, chkStreamAsShape;
  std::optional<std::int32_t> TidalStreamColour;
  // Text layer.
  std::optional<std::string> cmbTextSize;
  // Colours of the course and the boat.
  std::optional<std::int32_t> COGColour, GPSColour, WindColour;
  // Waypoints.
  std::optional<std::int32_t> WayColour, WayTextColour;
  std::optional<std::string> cmbTextWaySize, cmbWayLineSize;
  std::optional<bool> chkWayFill;
  std::optional<std::string> cmbWaySize;  // "Small", "Medium", "Large"
  std::optional<std::int16_t> optWayPointIcon;
  // Wrecks and obstructions.
  std::optional<bool> chkWreckNames, chkFill, chkDisplayWreckAsBoat, chkObsDetails, chkShowWrecks,
      chkshowObstructions, chkDisplayDead, chkDisplayLive;
  std::optional<std::int32_t> WreckColour, DiveSiteColour, ObstructionColour;
  std::optional<std::string> cmbUserWreckLineCol;  // a colour name
  std::optional<std::string> cmbWreckLineWidth, cmbWreckRange, cmbObstLineWidth;
  // Where the data lives.
  std::optional<bool> optAppFolder;
};

// What the main window must do after a successful round.
struct [[nodiscard]] ConfigureOutcome {
  std::string message;              // the first failure; empty on success
  bool written = false;             // the record went to the file
  float legSpeed = 0;               // the new working leg speed (the vessel speed)
  bool useLeewaySwitch = false;     // the leg forms' working leeway switch
  bool streamMenusEnabled = false;  // the stream menus follow UseTides
  bool setRouteSpeeds = false;      // every route point's speed becomes VesselSpeed (forms with the speed box)
  bool summerTimeChanged = false;   // reload the reference ports and the day's predictions
  bool reloadWrecks = false;        // reload the wreck marks
  std::optional<std::string> cmbUpperShown, cmbLowerShown;  // the scale lists after forcing their order
};

// Runs the round on `record` (already read from the file by the caller, or
// read here when `file` is given) and writes it to `file` on success.
ConfigureOutcome ApplyConfigure(SettingsRecord& record, const ConfigureControls& controls,
                                const std::optional<std::filesystem::path>& file);

}  // namespace kelvane
