#include "chart/layerswitches.h"

namespace kelvane {

namespace {

// The 16-bit switches hold 0 and -1; ShowWaypoints and ShowTidalStreams are
// singles holding 0 and 1.
template <std::int16_t SettingsRecord::*Field>
bool FlagOn(const SettingsRecord& s) {
  return s.*Field != 0;
}
template <std::int16_t SettingsRecord::*Field>
void SetFlag(SettingsRecord& s, bool on) {
  s.*Field = on ? -1 : 0;
}
template <float SettingsRecord::*Field>
bool RealOn(const SettingsRecord& s) {
  return s.*Field != 0.0f;
}
template <float SettingsRecord::*Field>
void SetReal(SettingsRecord& s, bool on) {
  s.*Field = on ? 1.0f : 0.0f;
}

}  // namespace

const std::vector<LayerSwitch>& LayerSwitches() {
  static const std::vector<LayerSwitch> switches = {
      {"mnuShowWaypoints", "cmdLayerWaypoints", "waypointsvis.bmp", "waypointshidden.bmp",
       &RealOn<&SettingsRecord::ShowWaypoints>, &SetReal<&SettingsRecord::ShowWaypoints>},
      {"mnushowTideHeights", "cmdLayerPorts", "portsvis.bmp", "portshidden.bmp",
       &FlagOn<&SettingsRecord::ShowTideHeights>, &SetFlag<&SettingsRecord::ShowTideHeights>},
      {"mnuShowTidalStreams", "cmdLayerStreams", "tidalstreamsvis.bmp", "tidalstreamshidden.bmp",
       &RealOn<&SettingsRecord::ShowTidalStreams>, &SetReal<&SettingsRecord::ShowTidalStreams>},
      {"mnuWindDisplay", "cmdLayerWind", "windon.bmp", "windoff.bmp", &FlagOn<&SettingsRecord::WindDisplay>,
       &SetFlag<&SettingsRecord::WindDisplay>},
      {"mnuDisplayWindOverRoute", "cmdLayerWindOver", "windoveron.bmp", "windoveroff.bmp",
       &FlagOn<&SettingsRecord::ShowWind>, &SetFlag<&SettingsRecord::ShowWind>},
      {"mnuViewChartBoundaries", "", "", "", &FlagOn<&SettingsRecord::ShowChartBoundaries>,
       &SetFlag<&SettingsRecord::ShowChartBoundaries>},
      {"mnuViewVectors", "", "", "", &FlagOn<&SettingsRecord::ShowVectors>, &SetFlag<&SettingsRecord::ShowVectors>},
  };
  return switches;
}

const LayerSwitch* FindLayerSwitch(const std::string& action) {
  for (const LayerSwitch& s : LayerSwitches())
    if (action == s.action) return &s;
  return nullptr;
}

const char* DividersPicture(bool dividersOn) { return dividersOn ? "dividers.bmp" : "dividerson.bmp"; }

}  // namespace kelvane
