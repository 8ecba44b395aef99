// The round of the configuration forms: take the controls, check them in a
// fixed order, set the fields they own in a record, and save the change.
//
// The largest form (wrecks and display) holds every control; the general
// and stream forms show subsets of the same checks and messages. A control
// a form does not show is left empty here and its step is skipped. The
// checks stop at the first failure: its message is returned and nothing is
// saved, though the fields set before the failing step stay changed in the
// record passed in (a form checks on a scratch copy, so the settings the
// program holds stay as they were).
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

// Checks the controls and sets the fields they own in `record`; touches no
// file. On success the same call on any other record is the change to save
// (the settings road writes it); `written` stays false here.
ConfigureOutcome ApplyConfigure(SettingsRecord& record, const ConfigureControls& controls);

// The whole round on the settings file alone: `record` is read from `file`,
// the controls checked and applied to it, and on success the file takes the
// same change. For a front end that holds no settings of its own.
ConfigureOutcome ApplyConfigure(SettingsRecord& record, const ConfigureControls& controls,
                                const std::filesystem::path& file);

}  // namespace kelvane
