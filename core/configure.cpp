#include "core/configure.h"

#include "core/format.h"
#include "core/text.h"

namespace kelvane {

namespace {

float Number(const std::string& text) { return static_cast<float>(TextValue(text)); }
std::int16_t Flag(bool on) { return on ? -1 : 0; }
bool Blank(const std::string& text) { return TrimBlanks(text).empty(); }

}  // namespace

ConfigureOutcome ApplyConfigure(SettingsRecord& r, const ConfigureControls& c) {
  ConfigureOutcome out;
  // 1. The record as it stands (the caller's copy).
  const std::int16_t summerBefore = r.SummerTime;

  // 2. The scale pair is forced into order before it is stored: a lower
  // scale at or above the upper one puts the upper back to 150 and the
  // lower to what it was.
  if (c.cmbLower && c.cmbUpper) {
    std::string lower = *c.cmbLower, upper = *c.cmbUpper;
    if (TextValue(lower) >= TextValue(upper)) {
      upper = "150";
      lower = NumberText(static_cast<double>(RoundToInt(r.ScaleMin * 100.0)));
    }
    r.ScaleMax = static_cast<float>(TextValue(upper) / 100.0);
    r.ScaleMin = static_cast<float>(TextValue(lower) / 100.0);
    out.cmbUpperShown = upper;
    out.cmbLowerShown = lower;
  }
  if (c.chkShowChartName) r.ShowChartName = Flag(*c.chkShowChartName);
  if (c.chkShowChartNum) r.ShowChartNum = Flag(*c.chkShowChartNum);
  if (c.chkAutoChartSwitch) r.AutoChartSwitch = Flag(*c.chkAutoChartSwitch);
  // 3. Stream and wind fonts.
  if (c.StreamFontColour) r.StreamFontColour = *c.StreamFontColour;
  if (c.cmbStreamFontSize) r.StreamFontSize = RoundToInt(TextValue(*c.cmbStreamFontSize));
  if (c.cmbWindFontSize) r.WindFontSize = RoundToInt(TextValue(*c.cmbWindFontSize));
  if (c.WindFontColour) r.WindFontColour = *c.WindFontColour;
  // 4. Variation: a number ending in an upper-case "W" or "E".
  if (c.Txtvariation) {
    const std::string& v = *c.Txtvariation;
    char last = v.empty() ? '\0' : v.back();
    if (last != 'W' && last != 'E') {
      out.message = "Enter a valid for Variation";
      return out;
    }
    float magnitude = std::abs(Number(v));
    r.Variation = last == 'E' ? magnitude : -magnitude;
  }
  // 5. Acceptable calculation error.
  if (c.txtErrorCircle) {
    if (Blank(*c.txtErrorCircle)) {
      out.message = "Enter a value for Acceptable Calculation Error Distance";
      return out;
    }
    if (Number(*c.txtErrorCircle) <= 0) {
      out.message = "Enter a value greater than 0 for Acceptable Calculation Error Distance";
      return out;
    }
  }
  // 6. Threshold, error distance, search circle (never below 0.01 nm).
  if (c.cmbThreshold) r.StreamThreshold = Number(*c.cmbThreshold);
  if (c.txtErrorCircle) r.AcceptableError = Number(*c.txtErrorCircle);
  if (c.txtSearchCircle) {
    r.SearchCircle = Number(*c.txtSearchCircle);
    if (r.SearchCircle < 0.01f) r.SearchCircle = 0.01f;
  }
  // 7. Vessel speed, also the working leg speed.
  out.legSpeed = r.VesselSpeed;
  if (c.Txtboatspeed) {
    if (Number(*c.Txtboatspeed) <= 0) {
      out.message = "Enter a value for Vessel Speed";
      return out;
    }
    r.VesselSpeed = Number(*c.Txtboatspeed);
    out.legSpeed = r.VesselSpeed;
  }
  // 8. Summer time.
  if (c.optSummerTime) r.SummerTime = Flag(*c.optSummerTime);
  // 9. Closest sailing angle.
  if (c.txtCPAWind) {
    if (Blank(*c.txtCPAWind)) {
      out.message = "Enter a value for Closest Sailing Angle";
      return out;
    }
    r.ClosestSailingAngle = Number(*c.txtCPAWind);
  }
  // 10. Stream labels and the course line.
  if (c.chkHideStreamId) r.HideStreamId = Flag(*c.chkHideStreamId);
  if (c.cmbLineSize) r.LineSize = Number(*c.cmbLineSize);
  // 11. Calculation interval, minutes.
  if (c.txtCalcInterval) {
    if (Blank(*c.txtCalcInterval) || Number(*c.txtCalcInterval) == 0) {
      out.message = "Enter a value for Calculation Interval";
      return out;
    }
    r.CalcInterval = Number(*c.txtCalcInterval);
  }
  // 12. Leeway (stored as 1 or 0), wind over the route.
  if (c.chkLeeway) r.UseLeeway = *c.chkLeeway ? 1 : 0;
  out.useLeewaySwitch = r.UseLeeway != 0;
  if (c.chkShowwind) r.ShowWind = Flag(*c.chkShowwind);
  if (c.txtLeeway) r.Leeway = Number(*c.txtLeeway);
  // 13. Streams in the calculations.
  if (c.chkUseTides) r.UseTides = Flag(*c.chkUseTides);
  // 14. Wind barbs.
  if (c.cmbBarbWeight) {
    if (Number(*c.cmbBarbWeight) == 0) {
      out.message = "Barb line width =0 !!";
      return out;
    }
    r.BarbWeight = RoundToInt16(TextValue(*c.cmbBarbWeight));
  }
  if (c.cmbBarbLength) {
    if (Number(*c.cmbBarbLength) == 0) {
      out.message = "Barb length =0 !!";
      return out;
    }
    r.BarbLength = Number(*c.cmbBarbLength);
  }
  if (c.cmbBarbSpacing) {
    if (Number(*c.cmbBarbSpacing) == 0) {
      out.message = "Barb spacing =0 !!";
      return out;
    }
    r.BarbSpacing = RoundToInt16(TextValue(*c.cmbBarbSpacing));
  }
  if (c.chkBarbDisplayText) r.BarbDisplayText = Flag(*c.chkBarbDisplayText);
  if (c.chkUseSmartMet) r.UseSmartMet = Flag(*c.chkUseSmartMet);
  // 15. Stream arrows.
  if (c.cmbStreamLineWidth) {
    if (Number(*c.cmbStreamLineWidth) == 0) {
      out.message = "Tidal Stream line width =0 !!";
      return out;
    }
    r.StreamLineWidth = RoundToInt16(TextValue(*c.cmbStreamLineWidth));
  }
  if (c.cmbStreamLength) {
    if (Number(*c.cmbStreamLength) == 0) {
      out.message = "Tidal Stream line length =0 !!";
      return out;
    }
    r.StreamLength = RoundToInt16(TextValue(*c.cmbStreamLength));
  }
  if (c.chkStreamFilled) r.StreamFilled = *c.chkStreamFilled ? 1 : 0;
  if (c.chkStreamAsShape) r.StreamAsShape = Flag(*c.chkStreamAsShape);
  if (c.TidalStreamColour) r.TidalStreamColour = *c.TidalStreamColour;
  // 16. Text layer.
  // The stream form has no text size of its own: its font size check is
  // the same one, on the size of the stream labels.
  if ((c.cmbTextSize && Number(*c.cmbTextSize) == 0) || (c.cmbStreamFontSize && Number(*c.cmbStreamFontSize) == 0)) {
    out.message = "Font Size = 0 !!";
    return out;
  }
  if (c.cmbTextSize) r.TextSize = RoundToInt(TextValue(*c.cmbTextSize));
  if (c.COGColour) r.COGColour = *c.COGColour;
  if (c.GPSColour) r.GPSColour = *c.GPSColour;
  if (c.WindColour) r.WindColour = *c.WindColour;
  // 17. Waypoints, wrecks and obstructions.
  if (c.WayColour) r.WayColour = *c.WayColour;
  if (c.WayTextColour) r.WayTextColour = *c.WayTextColour;
  if (c.cmbTextWaySize) r.TextWaySize = RoundToInt(TextValue(*c.cmbTextWaySize));
  if (c.cmbWayLineSize) r.WayLineSize = RoundToInt16(TextValue(*c.cmbWayLineSize));
  if (c.chkWayFill) r.WayFill = *c.chkWayFill ? 1 : 0;
  if (c.cmbWaySize) r.WaySize = *c.cmbWaySize == "Small" ? 6 : *c.cmbWaySize == "Medium" ? 8 : 10;
  if (c.optWayPointIcon) r.WayPointIcon = *c.optWayPointIcon;
  if (c.chkWreckNames) r.WreckNames = Flag(*c.chkWreckNames);
  if (c.chkFill) r.WreckFill = Flag(*c.chkFill);
  if (c.WreckColour) r.WreckColour = *c.WreckColour;
  if (c.cmbUserWreckLineCol) r.UserWreckLineColour = ColourFromName(*c.cmbUserWreckLineCol);
  if (c.cmbWreckLineWidth) r.WreckLineWidth = RoundToInt16(TextValue(*c.cmbWreckLineWidth));
  if (c.cmbWreckRange) {
    r.WreckRange = Number(*c.cmbWreckRange);
    if (r.WreckRange < 0.1f) r.WreckRange = 0.1f;
  }
  if (c.DiveSiteColour) r.DiveSiteColour = *c.DiveSiteColour;
  if (c.ObstructionColour) r.ObstructionColour = *c.ObstructionColour;
  if (c.chkDisplayWreckAsBoat) r.DisplayWreckAsBoat = Flag(*c.chkDisplayWreckAsBoat);
  if (c.chkObsDetails) r.ObsDetails = Flag(*c.chkObsDetails);
  if (c.cmbObstLineWidth) r.ObstLineWidth = RoundToInt16(TextValue(*c.cmbObstLineWidth));
  if (c.chkShowWrecks) r.ShowWrecks = Flag(*c.chkShowWrecks);
  if (c.chkshowObstructions) r.ShowObstructions = Flag(*c.chkshowObstructions);
  if (c.chkDisplayDead) r.DisplayDead = Flag(*c.chkDisplayDead);
  if (c.chkDisplayLive) r.DisplayLive = Flag(*c.chkDisplayLive);
  // 18. Where the data lives.
  if (c.optAppFolder) r.DataInApplicationFolder = Flag(*c.optAppFolder);
  // 19. The record as it is saved: on each save the stored twin of the
  // stream-label switch follows it, the view colour follows the boat colour,
  // and the seventh reserved single is set to 1.
  r.HideStreamId2 = r.HideStreamId;
  r.ViewColour = r.GPSColour;
  r.Reserved7 = 1.0f;
  // 20 - 23. What the main window does next.
  out.streamMenusEnabled = r.UseTides != 0;
  // Every leg of the route takes the vessel speed, whatever it was given
  // since, on each save of a form that shows the speed.
  out.setRouteSpeeds = c.Txtboatspeed.has_value();
  out.summerTimeChanged = r.SummerTime != summerBefore;
  out.reloadWrecks = true;
  return out;
}

ConfigureOutcome ApplyConfigure(SettingsRecord& record, const ConfigureControls& controls,
                                const std::filesystem::path& file) {
  record = ReadSettings(file);
  ConfigureOutcome out = ApplyConfigure(record, controls);
  if (!out.message.empty()) return out;
  // The file takes the same change on what it holds now, so only the
  // fields of the form's controls move.
  if (!ChangeSettingsFile(file, [&controls](SettingsRecord& stored) { (void)ApplyConfigure(stored, controls); })) {
    out.message = "Unable to save settings to " + file.string();
    return out;
  }
  out.written = true;
  return out;
}

}  // namespace kelvane
