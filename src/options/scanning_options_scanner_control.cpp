// scanning_options_scanner_control.cpp: the scanner control page: stop conditions, batch data,
// read levels and transport printing, with their enabled states and checks.
#include "options/scanning_options_model.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "frame/message_display.h"

namespace qmk::options {
namespace {

constexpr unsigned kMaxSerial = 999998;
constexpr int kThresholdTexts[] = {254, 253, 255}, kDiscriminationTexts[] = {256, 257, 258};
constexpr int32_t kNamedValues[] = {-1, 0, -2};
constexpr int kReadCombos[] = {kIdcBubbleThreshold, kIdcBubbleDiscrimination, kIdcCheckThreshold,
                               kIdcCheckDiscrimination, kIdcTickThreshold, kIdcTickDiscrimination};

unsigned ParseUnsigned(const char* field, size_t size) {
  return static_cast<unsigned>(std::strtoul(std::string(field, strnlen(field, size)).c_str(), nullptr, 10));
}

// A list of numbers whose last character separates them: parts trimmed, empty parts dropped.
std::vector<ReadLevelEntry> SplitNumberList(const std::string& source) {
  std::vector<ReadLevelEntry> list;
  if (source.empty()) return list;
  const char separator = source.back();
  size_t start = 0;
  while (start < source.size()) {
    size_t end = source.find(separator, start);
    if (end == std::string::npos) end = source.size();
    const std::string part = Trimmed(source.substr(start, end - start));
    if (!part.empty()) list.push_back({part, static_cast<int32_t>(std::strtol(part.c_str(), nullptr, 10))});
    start = end + 1;
  }
  return list;
}

std::vector<ReadLevelEntry> NamedList(OptionServices& services, const int (&ids)[3]) {
  std::vector<ReadLevelEntry> list;
  for (int i = 0; i < 3; ++i) list.push_back({services.Text(ids[i]), kNamedValues[i]});
  return list;
}

int32_t* RecordField(build_data& r, int field) {
  int32_t* fields[] = {&r.bubbleThreshold, &r.bubbleDiscrimination, &r.checkThreshold,
                       &r.checkDiscrimination, &r.tickThreshold, &r.tickDiscrimination};
  return fields[field];
}

void WriteNumber(char* field, size_t size, unsigned value) {
  char text[16];
  std::snprintf(text, sizeof text, "%d", static_cast<int>(value));
  CopyField(field, size, text);
}

bool IsThreshold(int field) { return field % 2 == 0; }

}  // namespace

std::array<std::string*, CScanningOptionsTabScannerControl::kReadFields>
CScanningOptionsTabScannerControl::ReadTexts() {
  return {&m_strBubbleThreshold, &m_strBubbleDiscrimination, &m_strCheckThreshold,
          &m_strCheckDiscrimination, &m_strTickThreshold, &m_strTickDiscrimination};
}

const std::vector<ReadLevelEntry>& CScanningOptionsTabScannerControl::ListOf(ReadField field) const {
  return IsThreshold(field) ? thresholds_ : discriminations_;
}

std::string CScanningOptionsTabScannerControl::Today() const {
  return main_.services().Text(kTextToday);
}

void CScanningOptionsTabScannerControl::OnInitDialog() {
  LoadValues();
  BuildLists();
  FindReadTexts();
  SelectReadTexts();
  m_nSpinPosition = m_nPrintPosition;
  ready_ = true;
  RefreshEnabled();
}

void CScanningOptionsTabScannerControl::LoadValues() {
  const build_data& r = main_.m_data;
  const feat_mask& feat = main_.config().feat_mask;
  // A scanner without a select stacker always shows the check on.
  m_bStopSystem = !(!(r.stopFlags & QMK_STOP_SYSTEM) && feat.select_stacker);
  m_bStopLitho = (r.stopFlags & QMK_STOP_LITHO_CODE) != 0;
  m_bStopThickness = (r.stopFlags & QMK_STOP_THICKNESS) != 0;
  m_nBatch = ParseUnsigned(r.batchNumberText, sizeof r.batchNumberText);
  m_nSerial = ParseUnsigned(r.serialNumberText, sizeof r.serialNumberText);
  m_nRun = ParseUnsigned(r.runNumberText, sizeof r.runNumberText);
  m_strDate = std::string(r.scanDateText, strnlen(r.scanDateText, sizeof r.scanDateText));
  if (m_strDate.empty()) m_strDate = Today();
  if (r.dataFileMode == 2) {
    // The data folder is the host's, at the front of its configuration record.
    const sct_config& config = main_.config();
    const char* host = reinterpret_cast<const char*>(config.host_portion);
    const std::string folder(host, strnlen(host, QMK_PATH_BYTES));
    const std::string& name = main_.m_strCurrentFileName;
    const std::string path = name.empty() ? folder : folder + "/" + name;
    unsigned last = 0;
    if (main_.services().LastSerialInDataFile(path, last))
      m_nSerial = std::min(last + 1, kMaxSerial);
  }
  m_bPrintSerial = r.printFlags & QMK_PRINT_SERIAL;
  m_bPrintBatch = r.printFlags & QMK_PRINT_BATCH;
  m_bPrintRun = r.printFlags & QMK_PRINT_RUN;
  m_bPrintDate = r.printFlags & QMK_PRINT_SCAN_DATE;
  m_bOffsetEdit = r.printFlags & QMK_PRINT_OFFSET_EDIT;
  m_bFourDigitYear = r.printFlags & QMK_PRINT_FOUR_DIGIT_YEAR;
  m_nPrintPosition = r.printPosition;
}

void CScanningOptionsTabScannerControl::BuildLists() {
  OptionServices& services = main_.services();
  if (main_.m_nReadLevel == 2) {
    thresholds_ = SplitNumberList(services.Text(kTextThresholdNumbers));
    discriminations_ = SplitNumberList(services.Text(kTextDiscriminationNumbers));
  } else {
    thresholds_ = NamedList(services, kThresholdTexts);
    discriminations_ = NamedList(services, kDiscriminationTexts);
  }
}

void CScanningOptionsTabScannerControl::FindReadTexts() {
  const bool numbers = main_.m_nReadLevel == 2;
  auto texts = ReadTexts();
  for (int field = 0; field < kReadFields; ++field) {
    const int32_t value = *RecordField(main_.m_data, field);
    const auto& list = ListOf(static_cast<ReadField>(field));
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const ReadLevelEntry& e) { return e.value == value; });
    std::string text = found == list.end() ? std::string() : found->text;
    if (text.empty())
      text = IsThreshold(field) ? (numbers ? "5" : "Normal") : (numbers ? "3" : "Medium");
    *texts[field] = text;
  }
}

void CScanningOptionsTabScannerControl::SelectReadTexts() {
  auto texts = ReadTexts();
  if (main_.m_nReadLevel == 1) {
    // Filled with nothing selected: the combos read back empty, and the fields stay.
    for (std::string* text : texts) text->clear();
    return;
  }
  for (int field = 0; field < kReadFields; ++field) {
    const auto& list = ListOf(static_cast<ReadField>(field));
    int index = -1;
    for (size_t i = 0; i < list.size() && index < 0; ++i)
      if (list[i].text.size() >= texts[field]->size() &&
          EqualsNoCase(list[i].text.substr(0, texts[field]->size()), *texts[field]))
        index = static_cast<int>(i);
    if (index < 0) {
      for (int rest = field; rest < kReadFields; ++rest) texts[rest]->clear();
      main_.services().ShowMessage(kMsgNoReadLevel, frame::kMbIconExclamation, nullptr);
      return;
    }
    read_selected_[field] = index;
    *texts[field] = list[index].text;
  }
}

void CScanningOptionsTabScannerControl::OnSelectRead(ReadField field, int index) {
  const auto& list = ListOf(field);
  if (index < 0 || index >= static_cast<int>(list.size())) return;
  read_selected_[field] = index;
  ReadText(field) = list[index].text;
}

bool* CScanningOptionsTabScannerControl::CheckOf(int id) {
  switch (id) {
    case kIdcStopSystem: return &m_bStopSystem;
    case kIdcStopLitho: return &m_bStopLitho;
    case kIdcStopThickness: return &m_bStopThickness;
    case kIdcPrintSerial: return &m_bPrintSerial;
    case kIdcPrintBatch: return &m_bPrintBatch;
    case kIdcPrintRun: return &m_bPrintRun;
    case kIdcPrintDate: return &m_bPrintDate;
    case kIdcFourDigitYear: return &m_bFourDigitYear;
    case kIdcOffsetEdit: return &m_bOffsetEdit;
    default: return nullptr;
  }
}

void CScanningOptionsTabScannerControl::OnClick(int id) {
  bool* check = CheckOf(id);
  if (!check || !Enabled(id)) return;
  *check = !*check;
  RefreshEnabled();
}

void CScanningOptionsTabScannerControl::RefreshEnabled() {
  const feat_mask& feat = main_.config().feat_mask;
  enabled_.Set(kIdcStopSystem, feat.select_stacker);
  enabled_.Set(kIdcBatchLabel, main_.m_bBatchEditable);
  enabled_.Set(kIdcBatch, main_.m_bBatchEditable);
  enabled_.Set(kIdcSerialLabel, main_.m_nDataFileMode != 0);
  enabled_.Set(kIdcSerial, main_.m_nDataFileMode != 0);
  const bool printing = feat.transport_printer;
  for (int id : {kIdcPrintGroup, kIdcPrintSerial, kIdcPrintBatch, kIdcPrintRun, kIdcPrintDate,
                 kIdcOffsetEdit, kIdcPrintPosition, kIdcPrintSpin, kIdcPrintPositionLabel})
    enabled_.Set(id, printing);
  enabled_.Set(kIdcFourDigitYear, printing && m_bPrintDate);
  if (!m_bPrintDate) m_bFourDigitYear = false;
  const bool reading = main_.m_nReadLevel != 1;
  enabled_.Set(kIdcBubbleThreshold, reading);
  enabled_.Set(kIdcBubbleDiscrimination, reading);
  // Without image reading the check and tick combos stay usable at every level, and their
  // labels are greyed: that is how the page is meant to look.
  for (int i = 2; i < kReadFields; ++i) enabled_.Set(kReadCombos[i], feat.image_read ? reading : true);
  if (!feat.image_read)
    for (int id : {kIdcBubbleLabel, kIdcCheckLabel, kIdcTickLabel}) enabled_.Set(id, false);
}

void CScanningOptionsTabScannerControl::OnDateKillFocus() {
  m_strDate = Trimmed(m_strDate);
  std::string normalised = m_strDate;
  if (EqualsNoCase(m_strDate, Today())) m_strDate = Today();
  else if (main_.services().NormalizeDate(m_strDate, normalised)) m_strDate = normalised;
}

bool CScanningOptionsTabScannerControl::CheckPrintPosition() {
  if (m_nPrintPosition >= 1 && m_nPrintPosition <= 63) return true;
  main_.services().ShowText("Please enter an integer between 1 and 63.", frame::kMbIconExclamation);
  focus_ = kIdcPrintPosition;
  return false;
}

bool CScanningOptionsTabScannerControl::ValidateBatchData() {
  OptionServices& services = main_.services();
  bool ok = true;
  if (m_nRun > 9) {
    services.ShowMessage(kMsgBadRun, frame::kMbIconStop, nullptr);
    ok = false;
  }
  if (m_nBatch > 999) {
    services.ShowMessage(kMsgBadBatch, frame::kMbIconStop, nullptr);
    ok = false;
  }
  m_strDate = Trimmed(m_strDate);
  if (EqualsNoCase(m_strDate, Today())) {
    m_strDate = Today();
  } else {
    // The date becomes what the normaliser wrote; a refused date is left as typed.
    std::string normalised = m_strDate;
    if (!services.NormalizeDate(m_strDate, normalised)) {
      services.ShowMessage(kMsgBadDate, 0, m_strDate.c_str());
      focus_ = kIdcDate;
      ok = false;
    }
    m_strDate = normalised;
  }
  // The serial is checked in append mode too, although the message says it is ignored there.
  if (m_nSerial < 1 || m_nSerial > kMaxSerial) {
    services.ShowMessage(kMsgBadSerial, 0, nullptr);
    return false;
  }
  return ok;
}

bool CScanningOptionsTabScannerControl::SpinTest() const {
  if (!main_.config().feat_mask.transport_printer) return true;
  return m_nSpinPosition >= 1 && m_nSpinPosition <= 63;
}

void CScanningOptionsTabScannerControl::Store(build_data& r) const {
  r.stopFlags = static_cast<uint16_t>((m_bStopLitho ? QMK_STOP_LITHO_CODE : 0) |
                                      (m_bStopSystem ? QMK_STOP_SYSTEM : 0) |
                                      (m_bStopThickness ? QMK_STOP_THICKNESS : 0));
  CopyField(r.scanDateText, sizeof r.scanDateText,
            EqualsNoCase(m_strDate, Today()) ? std::string() : m_strDate.substr(0, 11));
  if (main_.m_bBatchEditable) WriteNumber(r.batchNumberText, sizeof r.batchNumberText, m_nBatch);
  WriteNumber(r.runNumberText, sizeof r.runNumberText, m_nRun);
  WriteNumber(r.serialNumberText, sizeof r.serialNumberText, m_nSerial);
  r.printFlags = static_cast<uint16_t>(
      (m_bPrintSerial ? QMK_PRINT_SERIAL : 0) | (m_bPrintBatch ? QMK_PRINT_BATCH : 0) |
      (m_bPrintRun ? QMK_PRINT_RUN : 0) | (m_bPrintDate ? QMK_PRINT_SCAN_DATE : 0) |
      (m_bOffsetEdit ? QMK_PRINT_OFFSET_EDIT : 0) |
      (m_bFourDigitYear ? QMK_PRINT_FOUR_DIGIT_YEAR : 0));
  r.printPosition = static_cast<int16_t>(m_nPrintPosition);
  const std::string* texts[] = {&m_strBubbleThreshold, &m_strBubbleDiscrimination,
                                &m_strCheckThreshold, &m_strCheckDiscrimination,
                                &m_strTickThreshold, &m_strTickDiscrimination};
  for (int field = 0; field < kReadFields; ++field) {
    const auto& list = ListOf(static_cast<ReadField>(field));
    const auto found = std::find_if(list.begin(), list.end(),
                                    [&](const ReadLevelEntry& e) { return e.text == *texts[field]; });
    if (found != list.end()) *RecordField(r, field) = found->value;
  }
}

}  // namespace qmk::options
