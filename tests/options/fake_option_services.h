// fake_option_services.h: option services with fixed texts and checks that record what the
// dialogs asked and showed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "frame/message_display.h"
#include "options/option_services.h"

namespace qmk::options::testing {

class FakeOptionServices : public OptionServices {
 public:
  std::map<int, std::string> texts = {
      {kTextChooserTitle, "Pick"},        {kTextFileFilter, "Text (*.txt)#*.txt#"},
      {kTextThresholdNumbers, " 2, 5 ,,9,"}, {kTextDiscriminationNumbers, "1;3;7;"},
      {kTextToday, "Today"},              {253, "Normal"}, {254, "Light"}, {255, "Dark"},
      {256, "Low"},                       {257, "Medium"}, {258, "High"}};
  std::string data_folder = "/data";
  bool has_metrics = false;
  unsigned last_serial = 0;
  std::vector<std::string> metrics_paths;
  // Messages shown, as "id flags arg" or "text flags".
  std::vector<std::string> shown;
  int auto_name_answer = frame::kIdCancel;
  std::function<void(CAutoNameDialog&)> on_auto_name;
  int auto_name_runs = 0;
  bool template_ok = true;
  std::vector<std::string> templates_checked;
  std::vector<QMK_HWND> template_owners;
  std::string chooser_answer;  // empty: the chooser is cancelled
  std::vector<std::string> chooser_calls;

  std::string Text(int id) override {
    const auto found = texts.find(id);
    return found == texts.end() ? std::string() : found->second;
  }
  // A usable name is absolute, has no blank and no '?'.
  bool FileSpecUsable(const std::string& path) override {
    return !path.empty() && path[0] == '/' && path.find_first_of(" ?") == std::string::npos;
  }
  // Dates of the form D.M, normalised to "0D/0M"; a text with a '/' is normal already.
  bool NormalizeDate(const std::string& text, std::string& normalised) override {
    if (text.find('/') != std::string::npos) {
      normalised = text;
      return true;
    }
    const size_t dot = text.find('.');
    if (dot == std::string::npos || dot == 0 || dot + 1 == text.size()) return false;
    normalised = "0" + text.substr(0, dot) + "/0" + text.substr(dot + 1);
    return true;
  }
  bool LastSerialInDataFile(const std::string& path, unsigned& last) override {
    metrics_paths.push_back(path);
    if (has_metrics) last = last_serial;
    return has_metrics;
  }
  std::string DataFolder() override { return data_folder; }
  int ShowMessage(int id, unsigned flags, const char* arg) override {
    shown.push_back(std::to_string(id) + " " + std::to_string(flags) + (arg ? std::string(" ") + arg : ""));
    return frame::kIdOk;
  }
  int ShowText(const std::string& text, unsigned flags) override {
    shown.push_back(text + " " + std::to_string(flags));
    return frame::kIdOk;
  }
  bool CheckAutoNameTemplate(const std::string& name_template, QMK_HWND owner) override {
    templates_checked.push_back(name_template);
    template_owners.push_back(owner);
    return template_ok;
  }
  int RunAutoNameDialog(CAutoNameDialog& dialog) override {
    ++auto_name_runs;
    if (on_auto_name) on_auto_name(dialog);
    return auto_name_answer;
  }
  bool ChooseOpenFile(const std::string& title, const std::string& filter,
                      const std::string& folder, const std::string& file,
                      std::string& chosen) override {
    chooser_calls.push_back(title + "|" + filter + "|" + folder + "|" + file);
    chosen = chooser_answer;
    return !chooser_answer.empty();
  }
};

}  // namespace qmk::options::testing
