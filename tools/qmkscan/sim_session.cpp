// sim_session.cpp: configuration records for the simulator, and the journal in readable form.
#include "sim_session.h"

#include "qmk/QmkLink.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include "qmk/QmkLinkSim.h"

namespace qmkscan {
namespace {

// What a tune parameter number sets.
const std::map<int, const char*> kTuneNames = {
    {QLK_TUNE_LEAD_EDGE, "lead-edge tolerance"}, {QLK_TUNE_P2, "tune parameter 2"},
    {QLK_TUNE_P3, "tune parameter 3"},           {QLK_TUNE_P5, "tune parameter 5"},
    {QLK_TUNE_P7, "tune parameter 7"},           {QLK_TUNE_P8, "tune parameter 8"},
    {QLK_TUNE_READ_LEVEL, "read level"},         {QLK_TUNE_IMAGE_BYTE, "image level"},
    {QLK_TUNE_SPECTRUM, "spectrum"},             {QLK_TUNE_PICK_PREPARE, "pick preparation"},
    {QLK_TUNE_TWAIN_OPEN, "TWAIN preparation"},  {QLK_TUNE_READ_MODE, "read mode"},
    {QLK_TUNE_IMAGE_PATH, "detection level"}};

const std::map<int, const char*> kControlNames = {
    {QLK_CONTROL_READY, "make the transport ready to feed"},
    {QLK_CONTROL_STOP, "stop the transport"},
    {QLK_CONTROL_ACCEPT, "accept the sheet"},
    {QLK_CONTROL_REJECT, "reject the sheet"},
    {QLK_CONTROL_PADLOT_PREPARE, "prepare the pick"},
    {QLK_CONTROL_PADLOT_FIRMWARE, "refresh the firmware text"}};

const std::map<std::string, const char*> kCallNames = {
    {"QlkOpen", "open the transport"},
    {"QlkClose", "close the transport"},
    {"QlkCommSet", "port, data bits, stop bits, parity, baud, time-out"},
    {"QlkModeSet", "reading modes"},
    {"QlkSetRead", "read set-up"},
    {"QlkThickSet", "thickness window"},
    {"QlkSetSpectra", "spectrum"},
    {"QlkIsScanner", "is the scanner there?"},
    {"QlkSetBarCodeDelay", "bar-code timing"},
    {"QlkBarSet", "set up the bar-code reader"},
    {"AdaptiveDetect", "detect the print of the sheet"},
    {"QlkFlush", "flush the transport"},
};

// The first number argument of an entry such as "QlkControl(0, 22)".
int SecondArgument(const std::string& entry) {
  const size_t comma = entry.find(',');
  return comma == std::string::npos ? -1 : std::atoi(entry.c_str() + comma + 1);
}

std::string Gloss(const std::string& entry) {
  const std::string name = entry.substr(0, entry.find('('));
  if (name == "QlkControl" && kControlNames.count(SecondArgument(entry)))
    return kControlNames.at(SecondArgument(entry));
  if (name == "QlkSetTuneParams" && kTuneNames.count(SecondArgument(entry)))
    return std::string("set ") + kTuneNames.at(SecondArgument(entry));
  auto it = kCallNames.find(name);
  return it == kCallNames.end() ? "" : it->second;
}

}  // namespace

HostConfig ConfigForModel(const qmk::scanner::ModelRow& model, int bar_code_port) {
  HostConfig h;
  uint32_t word = qmk::scanner::FeatureWordFor(model, true);
  if (bar_code_port > 0) word |= 1u << 11;
  std::memcpy(&h.cfg.feat_mask, &word, sizeof word);
  h.cfg.bar_code_port = static_cast<int16_t>(bar_code_port);
  h.cfg.bar_code_delay = {50, 0};
  h.cfg.lead_edge_tol = 12;
  h.cfg.tune_p2 = 16;
  h.cfg.tune_p5 = 90;
  h.cfg.tune_p8 = 90;
  h.cfg.tune_p3 = 8;
  h.cfg.tune_p7 = 7;
  h.cfg.limit_a = h.cfg.limit_b = 2030;
  h.comm = sct_config_ex{9600, 'E', 7, 1, static_cast<int16_t>(model.forced_port ? model.forced_port : 1),
                         10, 0};
  return h;
}

std::vector<std::string> JournalLines(int first) {
  std::vector<std::string> lines;
  for (int i = first; i < QlkSimJournalSize(); ++i) {
    std::string entry(static_cast<size_t>(QlkSimJournalEntry(i, nullptr, 0)) + 1, '\0');
    QlkSimJournalEntry(i, entry.data(), static_cast<int>(entry.size()));
    entry.pop_back();
    const std::string gloss = Gloss(entry);
    if (!gloss.empty()) entry += std::string(40 > entry.size() ? 40 - entry.size() : 1, ' ') + "; " + gloss;
    lines.push_back(entry);
  }
  return lines;
}

int PrintJournal(int first) {
  for (const std::string& line : JournalLines(first)) std::printf("    %s\n", line.c_str());
  return QlkSimJournalSize();
}

}  // namespace qmkscan
